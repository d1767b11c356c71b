#pragma once

#include "OdCmEntityColor.h"
#include "OdString.h"

/**
 * A colour as a property holds it: the entity colour and, for a colour taken
 * from a colour book, its name and the book's.
 */
class ODA_EXPORT OdCmColor
{
public:
  OdCmColor() = default;
  explicit OdCmColor(OdCmEntityColor::ColorMethod method) : m_color(method) {}
  explicit OdCmColor(const OdCmEntityColor& color) : m_color(color) {}

  OdCmEntityColor::ColorMethod colorMethod() const { return m_color.colorMethod(); }
  void setColorMethod(OdCmEntityColor::ColorMethod method) { m_color.setColorMethod(method); dropNames(); }
  bool isByLayer() const { return m_color.isByLayer(); }
  bool isByBlock() const { return m_color.isByBlock(); }
  bool isByColor() const { return m_color.isByColor(); }
  bool isByACI() const { return m_color.isByACI(); }

  OdInt16 colorIndex() const { return m_color.colorIndex(); }
  void setColorIndex(OdInt16 index) { m_color.setColorIndex(index); dropNames(); }
  OdUInt8 red() const { return m_color.red(); }
  OdUInt8 green() const { return m_color.green(); }
  OdUInt8 blue() const { return m_color.blue(); }
  void setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue) { m_color.setRGB(red, green, blue); dropNames(); }

  OdUInt32 color() const { return m_color.color(); }
  bool setColor(OdUInt32 packed)
  {
    if (!m_color.setColor(packed))
      return false;
    dropNames();
    return true;
  }
  const OdCmEntityColor& entityColor() const { return m_color; }

  /** Only a true colour carries a name; naming any other colour is ignored. */
  bool setNames(const OdString& colorName, const OdString& bookName = OdString());
  const OdString& colorName() const { return m_colorName; }
  const OdString& bookName() const { return m_bookName; }

  bool operator==(const OdCmColor& o) const
  {
    return m_color == o.m_color && m_colorName == o.m_colorName && m_bookName == o.m_bookName;
  }
  bool operator!=(const OdCmColor& o) const { return !(*this == o); }

private:
  void dropNames()
  {
    m_colorName.empty();
    m_bookName.empty();
  }

  OdCmEntityColor m_color;
  OdString m_colorName;
  OdString m_bookName;
};
