#include "DrawingSpatialIndex.h"

#include <cmath>
#include <utility>

namespace
{

/** The position of cell (x, y) of a 65536 x 65536 grid along the Hilbert curve that fills it. */
std::uint32_t hilbertIndex(std::uint32_t x, std::uint32_t y)
{
  std::uint32_t index = 0;
  for (std::uint32_t s = 1u << 15; s > 0; s >>= 1)
  {
    const std::uint32_t rx = (x & s) ? 1 : 0;
    const std::uint32_t ry = (y & s) ? 1 : 0;
    index += s * s * ((3 * rx) ^ ry);
    if (ry == 0)
    {
      if (rx == 1)
      {
        x = s - 1 - (x & (s - 1)) + (x & ~(s - 1));
        y = s - 1 - (y & (s - 1)) + (y & ~(s - 1));
      }
      std::swap(x, y);
    }
  }
  return index;
}

/** Where @p v lies between @p low and @p high, as a cell of 65536; halved first, as a drawing's range may overflow a double. */
std::uint32_t cellOf(double v, double low, double high)
{
  const double range = high / 2 - low / 2;
  const double share = range > 0 ? (v / 2 - low / 2) / range : 0.0;
  return std::uint32_t(std::clamp(share, 0.0, 1.0) * 65535.0);
}

/** Sorts by the curve's index in two passes of 16 bits, in time linear in the count: std::sort of a million takes several times longer. */
void sortByKey(std::vector<std::pair<std::uint32_t, std::uint32_t>>& order)
{
  std::vector<std::pair<std::uint32_t, std::uint32_t>> sorted(order.size());
  std::vector<std::uint32_t> starts(65536);
  for (const int shift : {0, 16})
  {
    std::fill(starts.begin(), starts.end(), 0);
    for (const auto& item : order)
      ++starts[(item.first >> shift) & 0xffff];
    std::uint32_t sum = 0;
    for (std::uint32_t& start : starts)
      sum += std::exchange(start, sum);
    for (const auto& item : order)
      sorted[starts[(item.first >> shift) & 0xffff]++] = item;
    order.swap(sorted);
  }
}

DrawingBox unionOf(const DrawingBox* boxes, std::size_t count)
{
  DrawingBox united;
  for (std::size_t i = 0; i < count; ++i)
    united.unite(boxes[i]);
  return united;
}

} // namespace

void DrawingBox::unite(const DrawingBox& o)
{
  if (!o.isValid())
    return;
  if (!isValid())
  {
    *this = o;
    return;
  }
  left = std::min(left, o.left);
  top = std::min(top, o.top);
  right = std::max(right, o.right);
  bottom = std::max(bottom, o.bottom);
}

void DrawingBox::unite(double x, double y)
{
  unite(DrawingBox{x, y, x, y});
}

void DrawingSpatialIndex::clear()
{
  m_boxes.clear();
  m_ids.clear();
  m_positionOf.clear();
  m_levels.clear();
}

void DrawingSpatialIndex::build(const std::vector<DrawingBox>& boxes)
{
  clear();
  DrawingBox extents;
  for (const DrawingBox& box : boxes)
    extents.unite(box);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> order;
  order.reserve(boxes.size());
  for (std::size_t i = 0; i < boxes.size(); ++i)
  {
    const DrawingBox& b = boxes[i];
    if (!b.isValid())
      continue;
    const std::uint32_t x = cellOf(b.left / 2 + b.right / 2, extents.left, extents.right);
    const std::uint32_t y = cellOf(b.top / 2 + b.bottom / 2, extents.top, extents.bottom);
    order.emplace_back(hilbertIndex(x, y), std::uint32_t(i));
  }
  sortByKey(order);
  m_positionOf.assign(boxes.size(), kLeftOut);
  m_boxes.reserve(order.size());
  m_ids.reserve(order.size());
  for (const auto& [key, id] : order)
  {
    m_positionOf[id] = std::uint32_t(m_boxes.size());
    m_boxes.push_back(boxes[id]);
    m_ids.push_back(id);
  }
  if (m_boxes.empty())
    return;
  const std::vector<DrawingBox>* below = &m_boxes;
  do
  {
    std::vector<DrawingBox> level((below->size() + kFanout - 1) / kFanout);
    for (std::size_t n = 0; n < level.size(); ++n)
      level[n] = unionOf(below->data() + n * kFanout, std::min<std::size_t>(kFanout, below->size() - n * kFanout));
    m_levels.push_back(std::move(level));
    below = &m_levels.back();
  } while (below->size() > 1);
}

void DrawingSpatialIndex::update(std::uint32_t id, const DrawingBox& box)
{
  if (id >= m_positionOf.size() || m_positionOf[id] == kLeftOut || !box.isValid())
    return;
  const std::size_t position = m_positionOf[id];
  m_boxes[position] = box;
  refit(position);
}

void DrawingSpatialIndex::refit(std::size_t position)
{
  // each node is the union of its children again, so that a box that shrank does not leave its node wide
  const std::vector<DrawingBox>* below = &m_boxes;
  for (std::vector<DrawingBox>& level : m_levels)
  {
    const std::size_t node = position / kFanout;
    const std::size_t first = node * kFanout;
    level[node] = unionOf(below->data() + first, std::min<std::size_t>(kFanout, below->size() - first));
    position = node;
    below = &level;
  }
}
