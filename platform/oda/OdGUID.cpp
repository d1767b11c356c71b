#include "OdGUID.h"

#include <cstring>

const OdGUID OdGUID::kNull;

OdGUID::OdGUID() : m_data1(0), m_data2(0), m_data3(0)
{
  std::memset(m_data4, 0, sizeof m_data4);
}

OdGUID::OdGUID(int data1, short data2, short data3, const unsigned char data4[8])
  : m_data1(unsigned(data1)), m_data2(static_cast<unsigned short>(data2)), m_data3(static_cast<unsigned short>(data3))
{
  std::memcpy(m_data4, data4, sizeof m_data4);
}

OdGUID::OdGUID(int data1, short data2, short data3, unsigned char b0, unsigned char b1, unsigned char b2,
               unsigned char b3, unsigned char b4, unsigned char b5, unsigned char b6, unsigned char b7)
  : m_data1(unsigned(data1)), m_data2(static_cast<unsigned short>(data2)), m_data3(static_cast<unsigned short>(data3))
{
  const unsigned char bytes[8] = {b0, b1, b2, b3, b4, b5, b6, b7};
  std::memcpy(m_data4, bytes, sizeof m_data4);
}

namespace
{

/** Writes the value's `digits` lowest hex digits, upper case; answers the position after them. */
wchar_t* putHex(wchar_t* at, unsigned long value, int digits)
{
  static const wchar_t kDigits[] = L"0123456789ABCDEF";
  for (int i = digits - 1; i >= 0; --i, value >>= 4)
    at[i] = kDigits[value & 0xF];
  return at + digits;
}

} // namespace

// Every control is found by this text: written by hand rather than through
// swprintf, which costs more than the lookup it serves.
OdString OdGUID::toString(int format) const
{
  wchar_t buf[40];
  wchar_t* at = buf;
  if (format == 0)
    *at++ = L'{';
  at = putHex(at, m_data1, 8);
  *at++ = L'-';
  at = putHex(at, m_data2, 4);
  *at++ = L'-';
  at = putHex(at, m_data3, 4);
  *at++ = L'-';
  for (int i = 0; i < 8; ++i)
  {
    if (i == 2)
      *at++ = L'-';
    at = putHex(at, m_data4[i], 2);
  }
  if (format == 0)
    *at++ = L'}';
  *at = L'\0';
  return OdString(buf);
}

static int hexValue(wchar_t c)
{
  if (c >= L'0' && c <= L'9')
    return c - L'0';
  if (c >= L'a' && c <= L'f')
    return c - L'a' + 10;
  if (c >= L'A' && c <= L'F')
    return c - L'A' + 10;
  return -1;
}

bool OdGUID::fromString(const OdString& text)
{
  std::wstring s = text.stdString();
  if (s.size() == 38 && s.front() == L'{' && s.back() == L'}')
    s = s.substr(1, 36);
  if (s.size() != 36 || s[8] != L'-' || s[13] != L'-' || s[18] != L'-' || s[23] != L'-')
    return false;
  unsigned char bytes[16];
  int n = 0;
  for (std::size_t i = 0; i < s.size(); ++i)
  {
    if (s[i] == L'-')
      continue;
    const int hi = hexValue(s[i]);
    const int lo = hexValue(s[++i]);
    if (hi < 0 || lo < 0)
      return false;
    bytes[n++] = static_cast<unsigned char>(hi * 16 + lo);
  }
  m_data1 = unsigned(bytes[0]) << 24 | unsigned(bytes[1]) << 16 | unsigned(bytes[2]) << 8 | bytes[3];
  m_data2 = static_cast<unsigned short>(bytes[4] << 8 | bytes[5]);
  m_data3 = static_cast<unsigned short>(bytes[6] << 8 | bytes[7]);
  std::memcpy(m_data4, bytes + 8, 8);
  return true;
}

bool OdGUID::isNull() const
{
  return *this == kNull;
}

bool OdGUID::operator==(const OdGUID& o) const
{
  return m_data1 == o.m_data1 && m_data2 == o.m_data2 && m_data3 == o.m_data3 &&
         std::memcmp(m_data4, o.m_data4, sizeof m_data4) == 0;
}
