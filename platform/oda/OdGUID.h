#pragma once

#include "OdString.h"

/** 128-bit identifier; its text form is the canonical 8-4-4-4-12 one. */
class ODA_EXPORT OdGUID
{
public:
  OdGUID();
  OdGUID(int data1, short data2, short data3, const unsigned char data4[8]);
  OdGUID(int data1, short data2, short data3, unsigned char b0, unsigned char b1, unsigned char b2,
         unsigned char b3, unsigned char b4, unsigned char b5, unsigned char b6, unsigned char b7);

  /** Format 1 gives "XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX" in upper case; format 0 adds braces. */
  OdString toString(int format = 1) const;
  /** Reads either text form back; false leaves the GUID as it was. */
  bool fromString(const OdString& text);
  bool isNull() const;

  bool operator==(const OdGUID& o) const;
  bool operator!=(const OdGUID& o) const { return !(*this == o); }

  static const OdGUID kNull;

private:
  unsigned int m_data1;
  unsigned short m_data2;
  unsigned short m_data3;
  unsigned char m_data4[8];
};
