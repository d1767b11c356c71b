#pragma once

#include <QByteArray>
#include <QString>
#include <string>

/** One group of a DXF file: its code, its value as the file spells it, and the line its code stands on. */
struct DxfGroup
{
  int code = 0;
  std::string value;
  int line = 0;
};

/**
 * Cuts a text DXF file into its groups the way dxflib reads them, and checks
 * each before dxflib sees it. dxflib trusts what it reads: a line longer than
 * its buffer stops its reading for good, counts size its arrays, a number it
 * cannot read is zero; and it never says where a file went wrong. Here the
 * first group that would mislead it, or that a save could not write back as
 * it was read, ends the scan with a fault that names its line.
 */
class DxfGroupScanner
{
public:
  /** dxflib reads a line into a buffer of this many bytes, its end included. */
  static constexpr int kMaxLineLength = 1023;

  /** @p data must outlive the scanner. */
  explicit DxfGroupScanner(const QByteArray& data);

  /** The next group; false after the EOF group, where the data ends, or at a fault. */
  bool next(DxfGroup& group);

  /** What is wrong, when next() stopped at a fault; empty otherwise. */
  QString fault() const { return m_fault; }
  /** The line of the fault, or the line of the last group read. */
  int line() const { return m_line; }

private:
  bool readLine(QByteArray& line);
  bool checkValue(const DxfGroup& group);
  bool fail(const QString& fault);

  const QByteArray& m_data;
  int m_pos = 0;
  int m_line = 0;
  int m_lineCount = 0;
  bool m_done = false;
  /** Whether the groups are a header variable's (after a group 9). */
  bool m_inVariable = false;
  /** The object the groups belong to: the value of the last group 0. */
  std::string m_object;
  QString m_fault;
};
