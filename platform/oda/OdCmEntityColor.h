#pragma once

#include "OdaCommon.h"

/**
 * The colour an entity carries: how it is given (by its layer, by its block,
 * by an index into the 256-entry palette, or as red, green and blue) and,
 * for the last two, the index or the components.
 */
class ODA_EXPORT OdCmEntityColor
{
public:
  enum ColorMethod : OdUInt8
  {
    kByLayer = 0xC0,
    kByBlock = 0xC1,
    kByColor = 0xC2,
    kByACI = 0xC3
  };

  // Palette indices with a meaning of their own.
  enum ACIcolorMethod : OdInt16
  {
    kACIbyBlock = 0,
    kACIRed = 1,
    kACIYellow = 2,
    kACIGreen = 3,
    kACICyan = 4,
    kACIBlue = 5,
    kACIMagenta = 6,
    kACIforeground = 7,
    kACImaxColor = 255,
    kACIbyLayer = 256
  };

  OdCmEntityColor() = default;
  explicit OdCmEntityColor(ColorMethod method) { setColorMethod(method); }
  OdCmEntityColor(OdUInt8 red, OdUInt8 green, OdUInt8 blue) { setRGB(red, green, blue); }

  ColorMethod colorMethod() const { return m_method; }
  /** Switching to a palette colour starts at the foreground index, to a true colour at black. */
  void setColorMethod(ColorMethod method);

  bool isByLayer() const { return m_method == kByLayer; }
  bool isByBlock() const { return m_method == kByBlock; }
  bool isByColor() const { return m_method == kByColor; }
  bool isByACI() const { return m_method == kByACI; }

  /** The palette index: 256 for ByLayer, 0 for ByBlock, 1-255 for a palette colour, -1 for a true colour. */
  OdInt16 colorIndex() const;
  /** 256 makes the colour ByLayer and 0 ByBlock; any other index outside 1-255 is ignored. */
  void setColorIndex(OdInt16 index);

  /** For a palette colour these are the palette's components, for ByLayer and ByBlock zero. */
  OdUInt8 red() const;
  OdUInt8 green() const;
  OdUInt8 blue() const;
  void setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue);

  /** Method in the top byte, then the index or the components: one number per colour. */
  OdUInt32 color() const;
  /** The colour that color() gave; false (and unchanged) for a number no colour gives. */
  bool setColor(OdUInt32 packed);

  /** The palette's components of an index as 0x00RRGGBB; index 0 stands for ByBlock and is black. */
  static OdUInt32 lookUpRGB(OdUInt8 index);
  /** The palette index whose components are nearest (1-255). */
  static OdUInt8 lookUpACI(OdUInt8 red, OdUInt8 green, OdUInt8 blue);

  bool operator==(const OdCmEntityColor& o) const { return color() == o.color(); }
  bool operator!=(const OdCmEntityColor& o) const { return !(*this == o); }

private:
  ColorMethod m_method = kByLayer;
  OdInt16 m_index = kACIbyLayer;
  OdUInt8 m_red = 0;
  OdUInt8 m_green = 0;
  OdUInt8 m_blue = 0;
};
