#pragma once

#include "OdError.h"
#include <algorithm>
#include <vector>

/** Growable array of the platform; an index outside it raises the invalid-index error. */
template <class T>
class OdArray
{
public:
  typedef unsigned int size_type;
  typedef typename std::vector<T>::iterator iterator;
  typedef typename std::vector<T>::const_iterator const_iterator;

  OdArray() = default;
  explicit OdArray(size_type reserve) { m_data.reserve(reserve); }
  OdArray(std::initializer_list<T> items) : m_data(items) {}

  size_type size() const { return size_type(m_data.size()); }
  size_type length() const { return size(); }
  bool isEmpty() const { return m_data.empty(); }
  bool empty() const { return m_data.empty(); }
  size_type physicalLength() const { return size_type(m_data.capacity()); }

  T& operator[](size_type i) { check(i); return m_data[i]; }
  const T& operator[](size_type i) const { check(i); return m_data[i]; }
  T& at(size_type i) { return (*this)[i]; }
  const T& at(size_type i) const { return (*this)[i]; }
  const T& getAt(size_type i) const { return (*this)[i]; }
  OdArray& setAt(size_type i, const T& value) { (*this)[i] = value; return *this; }
  T& first() { return (*this)[0]; }
  const T& first() const { return (*this)[0]; }
  T& last() { return (*this)[size() - 1]; }
  const T& last() const { return (*this)[size() - 1]; }

  size_type append(const T& value) { m_data.push_back(value); return size() - 1; }
  void push_back(const T& value) { m_data.push_back(value); }
  OdArray& insertAt(size_type i, const T& value)
  {
    if (i > size())
      throw OdError_InvalidIndex();
    m_data.insert(m_data.begin() + i, value);
    return *this;
  }
  OdArray& removeAt(size_type i)
  {
    check(i);
    m_data.erase(m_data.begin() + i);
    return *this;
  }
  OdArray& removeLast() { return removeAt(size() - 1); }
  void clear() { m_data.clear(); }
  void resize(size_type n) { m_data.resize(n); }
  void resize(size_type n, const T& value) { m_data.resize(n, value); }
  void reserve(size_type n) { m_data.reserve(n); }
  OdArray& setPhysicalLength(size_type n) { m_data.reserve(n); return *this; }

  bool contains(const T& value, size_type start = 0) const
  {
    size_type found = 0;
    return find(value, found, start);
  }
  bool find(const T& value, size_type& found, size_type start = 0) const
  {
    for (size_type i = start; i < size(); ++i)
      if (m_data[i] == value)
      {
        found = i;
        return true;
      }
    return false;
  }

  T* asArrayPtr() { return m_data.data(); }
  const T* asArrayPtr() const { return m_data.data(); }
  const T* getPtr() const { return m_data.data(); }

  iterator begin() { return m_data.begin(); }
  iterator end() { return m_data.end(); }
  const_iterator begin() const { return m_data.begin(); }
  const_iterator end() const { return m_data.end(); }

  bool operator==(const OdArray& o) const { return m_data == o.m_data; }
  bool operator!=(const OdArray& o) const { return m_data != o.m_data; }

private:
  void check(size_type i) const
  {
    if (i >= m_data.size())
      throw OdError_InvalidIndex();
  }

  std::vector<T> m_data;
};

#include "OdString.h"
typedef OdArray<OdString> OdStringArray;
typedef OdArray<OdInt32> OdInt32Array;
typedef OdArray<OdInt64> OdInt64Array;
typedef OdArray<OdUInt64> OdUInt64Array;
typedef OdArray<double> OdDoubleArray;
typedef OdArray<bool> OdBoolArray;
