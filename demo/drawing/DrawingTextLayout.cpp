#include "DrawingTextLayout.h"

#include <QFontMetricsF>
#include <algorithm>

QString drawnText(const QString& text)
{
  if (!text.contains(QLatin1String("%%")))
    return text;
  QString shown;
  shown.reserve(text.size());
  for (int i = 0; i < text.size(); ++i)
  {
    if (text[i] != QLatin1Char('%') || i + 2 >= text.size() || text[i + 1] != QLatin1Char('%'))
    {
      shown += text[i];
      continue;
    }
    const QChar code = text[i + 2].toLower();
    if (code == QLatin1Char('c'))
      shown += QChar(0x00d8);
    else if (code == QLatin1Char('d'))
      shown += QChar(0x00b0);
    else if (code == QLatin1Char('p'))
      shown += QChar(0x00b1);
    else if (code == QLatin1Char('%'))
      shown += QLatin1Char('%');
    else if (code != QLatin1Char('u') && code != QLatin1Char('o'))
    {
      // not a code the canvas knows: shown as written; underline and overline are not drawn
      shown += text.mid(i, 3);
    }
    i += 2;
  }
  return shown;
}

QStringList drawnParagraphs(const QString& text)
{
  QStringList paragraphs;
  QString current;
  const int n = text.size();
  const auto skipPast = [&](int from, QChar end) {
    const int found = text.indexOf(end, from);
    return found < 0 ? n : found;
  };
  for (int i = 0; i < n; ++i)
  {
    const QChar c = text[i];
    if (c == QLatin1Char('{') || c == QLatin1Char('}'))
      continue;
    if (c == QLatin1Char('\n'))
    {
      paragraphs << drawnText(current);
      current.clear();
      continue;
    }
    if (c != QLatin1Char('\\') || i + 1 >= n)
    {
      current += c;
      continue;
    }
    const char code = text[++i].toLatin1();
    switch (code)
    {
    case 'P':
    case 'N':
    case 'X':
      paragraphs << drawnText(current);
      current.clear();
      break;
    case '~':
      current += QChar(0x00a0);
      break;
    case '\\':
    case '{':
    case '}':
      current += text[i];
      break;
    case 'S':
    {
      const int end = skipPast(i + 1, QLatin1Char(';'));
      QString stacked = text.mid(i + 1, end - i - 1);
      stacked.replace(QLatin1Char('^'), QLatin1Char('/')).replace(QLatin1Char('#'), QLatin1Char('/'));
      current += stacked.trimmed();
      i = end;
      break;
    }
    case 'U':
    {
      bool ok = false;
      const uint unicode = text.mid(i + 2, 4).toUInt(&ok, 16);
      if (i + 1 < n && text[i + 1] == QLatin1Char('+') && ok)
      {
        current += QChar(unicode);
        i += 5;
      }
      else
        current += text[i];
      break;
    }
    case 'M':
      // a character of a double-byte code page, which the canvas has no table for
      i = std::min(n - 1, i + 6);
      current += QChar(QChar::ReplacementCharacter);
      break;
    case 'A':
    case 'C':
    case 'c':
    case 'F':
    case 'f':
    case 'H':
    case 'h':
    case 'Q':
    case 'q':
    case 'T':
    case 't':
    case 'W':
    case 'w':
    case 'p':
      i = skipPast(i + 1, QLatin1Char(';'));
      break;
    case 'L':
    case 'l':
    case 'O':
    case 'o':
    case 'K':
    case 'k':
      break;
    default:
      current += QLatin1Char('\\');
      current += text[i];
      break;
    }
  }
  paragraphs << drawnText(current);
  return paragraphs;
}

QStringList wrappedLines(const QStringList& paragraphs, const QFontMetricsF& metrics, double width)
{
  if (!(width > 0))
    return paragraphs;
  QStringList lines;
  const QChar space(QLatin1Char(' '));
  for (const QString& paragraph : paragraphs)
  {
    if (metrics.horizontalAdvance(paragraph) <= width)
    {
      lines << paragraph;
      continue;
    }
    QString line;
    for (const QString& word : paragraph.split(space))
    {
      const QString longer = line.isEmpty() ? word : line + space + word;
      if (line.isEmpty() || metrics.horizontalAdvance(longer) <= width)
        line = longer;
      else
      {
        lines << line;
        line = word;
      }
    }
    lines << line;
  }
  return lines;
}
