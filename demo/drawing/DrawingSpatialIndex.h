#pragma once

#include <QRectF>
#include <algorithm>
#include <cstdint>
#include <vector>

/**
 * An axis-aligned box with closed edges: unlike QRectF, a box of no width or
 * height (a horizontal line, a point) still contains and meets other boxes.
 */
struct DrawingBox
{
  double left = 0;
  double top = 0;
  double right = -1;
  double bottom = -1;

  static DrawingBox of(const QRectF& r) { return {r.left(), r.top(), r.right(), r.bottom()}; }
  QRectF toRect() const { return QRectF(left, top, right - left, bottom - top); }
  bool isValid() const { return left <= right && top <= bottom; }
  bool meets(const DrawingBox& o) const { return left <= o.right && o.left <= right && top <= o.bottom && o.top <= bottom; }
  bool contains(const DrawingBox& o) const
  {
    return left <= o.left && o.right <= right && top <= o.top && o.bottom <= bottom;
  }
  void unite(const DrawingBox& o);
  void unite(double x, double y);
};

/**
 * Finds which of many boxes meet an area, without looking at each: a tree
 * packed bottom-up from the boxes sorted along a space-filling curve, sixteen
 * children to a node. Built once per drawing; a box that changes is put in
 * its place and the nodes above it widened, which stays correct however far
 * it moves (a tree whose boxes moved a lot is rebuilt by its owner).
 */
class DrawingSpatialIndex
{
public:
  /** Indexes every valid box of @p boxes under its position; invalid ones are left out. */
  void build(const std::vector<DrawingBox>& boxes);
  void clear();

  /** Gives item @p id the box @p box; an item left out at build time stays out. */
  void update(std::uint32_t id, const DrawingBox& box);

  /** Calls @p visit(id, box) for every indexed box that meets @p area, in no particular order. */
  template <class Visit>
  void query(const DrawingBox& area, Visit&& visit) const;

  std::size_t size() const { return m_ids.size(); }
  /** Whether item @p id was indexed (its box was valid at build time). */
  bool contains(std::uint32_t id) const { return id < m_positionOf.size() && m_positionOf[id] != kLeftOut; }

private:
  static constexpr std::uint32_t kFanout = 16;
  static constexpr std::uint32_t kLeftOut = 0xffffffffu;

  void refit(std::size_t position);

  /** The items' boxes and ids, in the curve's order. */
  std::vector<DrawingBox> m_boxes;
  std::vector<std::uint32_t> m_ids;
  /** Where each id sits in m_boxes, kLeftOut when it was not indexed. */
  std::vector<std::uint32_t> m_positionOf;
  /** m_levels[0] groups m_boxes by sixteen, each further level the one below; the last has one node. */
  std::vector<std::vector<DrawingBox>> m_levels;
};

template <class Visit>
void DrawingSpatialIndex::query(const DrawingBox& area, Visit&& visit) const
{
  if (m_levels.empty())
    return;
  struct Step
  {
    std::uint32_t level;
    std::uint32_t node;
  };
  // a tree of a billion items is eight levels deep: the stack never holds more than 8 x 16 steps
  Step stack[kFanout * 12];
  int depth = 0;
  const std::uint32_t top = std::uint32_t(m_levels.size() - 1);
  stack[depth++] = {top, 0};
  while (depth > 0)
  {
    const Step step = stack[--depth];
    if (!m_levels[step.level][step.node].meets(area))
      continue;
    const std::size_t first = std::size_t(step.node) * kFanout;
    if (step.level == 0)
    {
      const std::size_t last = std::min(first + kFanout, m_boxes.size());
      for (std::size_t i = first; i < last; ++i)
        if (m_boxes[i].meets(area))
          visit(m_ids[i], m_boxes[i]);
      continue;
    }
    const std::vector<DrawingBox>& below = m_levels[step.level - 1];
    const std::size_t last = std::min(first + kFanout, below.size());
    for (std::size_t i = last; i-- > first;)
      stack[depth++] = {step.level - 1, std::uint32_t(i)};
  }
}
