#include "OdString.h"

#include <cstdarg>
#include <cwchar>
#include <cwctype>
#include <vector>

OdString::OdString(const char* ascii)
{
  if (!ascii)
    return;
  for (const char* p = ascii; *p; ++p)
    m_data += OdChar(static_cast<unsigned char>(*p));
}

OdString OdString::left(int n) const
{
  return OdString(m_data.substr(0, std::size_t(n < 0 ? 0 : n)));
}

OdString OdString::mid(int start, int n) const
{
  if (start < 0 || std::size_t(start) >= m_data.size())
    return OdString();
  return OdString(m_data.substr(std::size_t(start), n < 0 ? std::wstring::npos : std::size_t(n)));
}

int OdString::find(OdChar ch) const
{
  const auto pos = m_data.find(ch);
  return pos == std::wstring::npos ? -1 : int(pos);
}

int OdString::find(const OdString& sub) const
{
  const auto pos = m_data.find(sub.m_data);
  return pos == std::wstring::npos ? -1 : int(pos);
}

OdString& OdString::trimLeft()
{
  std::size_t i = 0;
  while (i < m_data.size() && std::iswspace(m_data[i]))
    ++i;
  m_data.erase(0, i);
  return *this;
}

OdString& OdString::trimRight()
{
  while (!m_data.empty() && std::iswspace(m_data.back()))
    m_data.pop_back();
  return *this;
}

OdString& OdString::makeUpper()
{
  for (auto& c : m_data)
    c = OdChar(std::towupper(c));
  return *this;
}

OdString& OdString::makeLower()
{
  for (auto& c : m_data)
    c = OdChar(std::towlower(c));
  return *this;
}

int OdString::compare(const OdString& other) const
{
  return std::wcscmp(m_data.c_str(), other.m_data.c_str());
}

int OdString::iCompare(const OdString& other) const
{
  return std::wcscmp(OdString(*this).makeLower().c_str(), OdString(other).makeLower().c_str());
}

OdString& OdString::format(const OdChar* fmt, ...)
{
  std::vector<OdChar> buffer(256);
  for (;;)
  {
    va_list args;
    va_start(args, fmt);
    const int n = std::vswprintf(buffer.data(), buffer.size(), fmt, args);
    va_end(args);
    if (n >= 0 && std::size_t(n) < buffer.size())
    {
      m_data.assign(buffer.data(), std::size_t(n));
      return *this;
    }
    if (buffer.size() > (1u << 20))
    {
      m_data.clear();
      return *this;
    }
    buffer.resize(buffer.size() * 4);
  }
}
