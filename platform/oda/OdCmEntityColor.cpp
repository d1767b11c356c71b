#include "OdCmEntityColor.h"

namespace
{

// Entries 10-249 run through 24 hues, 15 degrees apart; each hue comes in
// five brightnesses, each full and half washed towards white. The table is
// built once from that rule rather than typed out.
struct Palette
{
  OdUInt8 rgb[256][3];

  Palette()
  {
    static const OdUInt8 firsts[10][3] = {{0, 0, 0},     {255, 0, 0},   {255, 255, 0}, {0, 255, 0},
                                          {0, 255, 255}, {0, 0, 255},   {255, 0, 255}, {255, 255, 255},
                                          {128, 128, 128}, {192, 192, 192}};
    for (int i = 0; i < 10; ++i)
      set(i, firsts[i][0], firsts[i][1], firsts[i][2]);
    static const int levels[5] = {255, 204, 153, 127, 76};
    for (int hue = 0; hue < 24; ++hue)
    {
      const int sector = hue / 4;
      const double t = (hue % 4) / 4.0;
      for (int level = 0; level < 5; ++level)
      {
        const int v = levels[level];
        const int up = int(v * t);
        const int down = int(v * (1.0 - t));
        int c[3] = {0, 0, 0};
        switch (sector)
        {
        case 0: c[0] = v; c[1] = up; break;
        case 1: c[0] = down; c[1] = v; break;
        case 2: c[1] = v; c[2] = up; break;
        case 3: c[1] = down; c[2] = v; break;
        case 4: c[0] = up; c[2] = v; break;
        default: c[0] = v; c[2] = down; break;
        }
        const int index = 10 + hue * 10 + level * 2;
        set(index, c[0], c[1], c[2]);
        set(index + 1, (v + c[0]) / 2, (v + c[1]) / 2, (v + c[2]) / 2);
      }
    }
    static const OdUInt8 greys[6] = {51, 80, 105, 130, 190, 255};
    for (int i = 0; i < 6; ++i)
      set(250 + i, greys[i], greys[i], greys[i]);
  }

  void set(int index, int r, int g, int b)
  {
    rgb[index][0] = OdUInt8(r);
    rgb[index][1] = OdUInt8(g);
    rgb[index][2] = OdUInt8(b);
  }
};

const Palette& palette()
{
  static const Palette instance;
  return instance;
}

} // namespace

void OdCmEntityColor::setColorMethod(ColorMethod method)
{
  switch (method)
  {
  case kByLayer: m_index = kACIbyLayer; break;
  case kByBlock: m_index = kACIbyBlock; break;
  case kByACI: m_index = kACIforeground; break;
  case kByColor: m_red = m_green = m_blue = 0; m_index = -1; break;
  default: return; // not a method of ours
  }
  m_method = method;
}

OdInt16 OdCmEntityColor::colorIndex() const
{
  return m_index;
}

void OdCmEntityColor::setColorIndex(OdInt16 index)
{
  if (index == kACIbyLayer)
    setColorMethod(kByLayer);
  else if (index == kACIbyBlock)
    setColorMethod(kByBlock);
  else if (index > 0 && index <= kACImaxColor)
  {
    m_method = kByACI;
    m_index = index;
  }
}

OdUInt8 OdCmEntityColor::red() const
{
  return m_method == kByColor ? m_red : m_method == kByACI ? palette().rgb[m_index][0] : 0;
}

OdUInt8 OdCmEntityColor::green() const
{
  return m_method == kByColor ? m_green : m_method == kByACI ? palette().rgb[m_index][1] : 0;
}

OdUInt8 OdCmEntityColor::blue() const
{
  return m_method == kByColor ? m_blue : m_method == kByACI ? palette().rgb[m_index][2] : 0;
}

void OdCmEntityColor::setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue)
{
  m_method = kByColor;
  m_index = -1;
  m_red = red;
  m_green = green;
  m_blue = blue;
}

OdUInt32 OdCmEntityColor::color() const
{
  const OdUInt32 method = OdUInt32(m_method) << 24;
  if (m_method == kByColor)
    return method | (OdUInt32(m_red) << 16) | (OdUInt32(m_green) << 8) | m_blue;
  if (m_method == kByACI)
    return method | OdUInt32(m_index);
  return method;
}

bool OdCmEntityColor::setColor(OdUInt32 packed)
{
  const OdUInt32 value = packed & 0xFFFFFF;
  switch (packed >> 24)
  {
  case kByLayer:
  case kByBlock:
    if (value != 0)
      return false;
    setColorMethod(ColorMethod(packed >> 24));
    return true;
  case kByACI:
    if (value < 1 || value > kACImaxColor)
      return false;
    setColorIndex(OdInt16(value));
    return true;
  case kByColor:
    setRGB(OdUInt8(value >> 16), OdUInt8(value >> 8), OdUInt8(value));
    return true;
  default:
    return false;
  }
}

OdUInt32 OdCmEntityColor::lookUpRGB(OdUInt8 index)
{
  const OdUInt8* c = palette().rgb[index];
  return (OdUInt32(c[0]) << 16) | (OdUInt32(c[1]) << 8) | c[2];
}

OdUInt8 OdCmEntityColor::lookUpACI(OdUInt8 red, OdUInt8 green, OdUInt8 blue)
{
  int best = 1;
  long bestDistance = -1;
  for (int i = 1; i <= kACImaxColor; ++i)
  {
    const OdUInt8* c = palette().rgb[i];
    const long dr = long(c[0]) - red, dg = long(c[1]) - green, db = long(c[2]) - blue;
    const long distance = dr * dr + dg * dg + db * db;
    if (bestDistance < 0 || distance < bestDistance)
    {
      best = i;
      bestDistance = distance;
    }
  }
  return OdUInt8(best);
}
