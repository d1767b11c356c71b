#pragma once

#include "OdaCommon.h"
#include <string>

/** Wide-character string of the platform; ordered by wcscmp like the SDK's. */
class ODA_EXPORT OdString
{
public:
  OdString() = default;
  OdString(const OdChar* text) : m_data(text ? text : L"") {}
  OdString(const OdChar* text, int length) : m_data(text ? std::wstring(text, length) : std::wstring()) {}
  /** Only 7-bit text is meant to come in this way; each byte becomes one character. */
  explicit OdString(const char* ascii);
  explicit OdString(const std::wstring& text) : m_data(text) {}

  const OdChar* c_str() const { return m_data.c_str(); }
  operator const OdChar*() const { return m_data.c_str(); }
  int getLength() const { return int(m_data.size()); }
  bool isEmpty() const { return m_data.empty(); }
  OdChar getAt(int i) const { return m_data.at(std::size_t(i)); }
  OdString& empty() { m_data.clear(); return *this; }

  OdString left(int n) const;
  OdString mid(int start, int n = -1) const;
  int find(OdChar ch) const;
  int find(const OdString& sub) const;
  OdString& trimLeft();
  OdString& trimRight();
  OdString& makeUpper();
  OdString& makeLower();
  int compare(const OdString& other) const;
  int iCompare(const OdString& other) const;
  OdString& format(const OdChar* fmt, ...);

  OdString& operator+=(const OdString& other) { m_data += other.m_data; return *this; }
  OdString& operator+=(OdChar ch) { m_data += ch; return *this; }
  friend OdString operator+(OdString a, const OdString& b) { a += b; return a; }

  bool operator==(const OdString& o) const { return m_data == o.m_data; }
  bool operator!=(const OdString& o) const { return m_data != o.m_data; }
  bool operator==(const OdChar* o) const { return compare(OdString(o)) == 0; }
  bool operator!=(const OdChar* o) const { return !(*this == o); }
  bool operator<(const OdString& o) const { return compare(o) < 0; }

  const std::wstring& stdString() const { return m_data; }

private:
  std::wstring m_data;
};

/** Orders keys the way the SDK's string maps do. */
struct OdStringLess
{
  bool operator()(const OdString& a, const OdString& b) const { return a.compare(b) < 0; }
};
