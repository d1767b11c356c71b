#pragma once

#include <QByteArray>
#include <QString>
#include <string_view>

/**
 * One group of a DXF file: its code, its value as the file spells it (a view
 * into the file's bytes, without the line end), the number it holds when its
 * code is a numeric one, the line its code stands on and the bytes it spans.
 */
struct DxfGroup
{
  int code = 0;
  std::string_view value;
  /** For codes of numbers, the number; otherwise 0. */
  double number = 0.0;
  int line = 0;
  /** The group's bytes in the file: from its code line's start to after its value line's end. */
  int begin = 0;
  int end = 0;

  int integer() const { return int(number); }
  bool is(std::string_view text) const { return value == text; }
};

/**
 * Cuts a text DXF file into its groups and checks each as it goes: a line of
 * a size no reader expects, a number that is not one or that no drawing can
 * measure. The first such group ends the scan with a fault that names its
 * line. The values are views into the data, read once: a drawing of a million
 * entities has tens of millions of groups, and a copy per group is most of
 * the time its reading takes.
 */
class DxfGroupScanner
{
public:
  /** A line longer than this is no DXF file's. */
  static constexpr int kMaxLineLength = 1023;

  /** @p data must outlive the scanner; it scans the bytes from @p begin to @p end (-1: the data's end). */
  explicit DxfGroupScanner(const QByteArray& data, int begin = 0, int end = -1);

  /** The next group; false after the EOF group, where the data ends, or at a fault. */
  bool next(DxfGroup& group);

  /** What is wrong, when next() stopped at a fault; empty otherwise. */
  QString fault() const { return m_fault; }
  /** The line of the fault, or the line of the last group read. */
  int line() const { return m_line; }

  /** Whether a group of @p code holds a number (real or whole) in the file format. */
  static bool holdsNumber(int code);
  static bool holdsReal(int code);

private:
  bool readLine(std::string_view& line);
  bool checkValue(DxfGroup& group);
  bool fail(const QString& fault);

  const char* m_data;
  int m_pos = 0;
  int m_end = 0;
  int m_line = 0;
  bool m_done = false;
  /** Whether the groups are a header variable's (after a group 9). */
  bool m_inVariable = false;
  QString m_fault;
};
