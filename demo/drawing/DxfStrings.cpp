#include "DxfStrings.h"

#include <QRegularExpression>

QString fromDxfString(const std::string& bytes)
{
  // Newer files are UTF-8, older ones a Windows code page; a byte string that
  // is not valid UTF-8 is taken as Latin-1, which is right for most of them.
  // Decoding replaces what is not UTF-8, so only valid bytes come back the same.
  // A leading byte order mark is no part of the text.
  const QByteArray raw = QByteArray::fromStdString(bytes);
  const QByteArray utf8 = raw.startsWith("\xEF\xBB\xBF") ? raw.mid(3) : raw;
  QString text = QString::fromUtf8(utf8);
  if (text.toUtf8() != utf8)
    text = QString::fromLatin1(raw);
  if (!text.contains(QLatin1String("\\U+"), Qt::CaseInsensitive))
    return text;
  static const QRegularExpression escape(QStringLiteral("\\\\[Uu]\\+([0-9A-Fa-f]{4})"));
  QString decoded;
  qsizetype last = 0;
  auto it = escape.globalMatch(text);
  while (it.hasNext())
  {
    const QRegularExpressionMatch match = it.next();
    decoded.append(text.constData() + last, match.capturedStart() - last);
    decoded += QChar(char16_t(match.captured(1).toUShort(nullptr, 16)));
    last = match.capturedEnd();
  }
  decoded.append(text.constData() + last, text.size() - last);
  return decoded;
}

std::string toDxfString(const QString& text)
{
  std::string bytes;
  bytes.reserve(std::size_t(text.size()));
  for (const QChar c : text)
  {
    const ushort code = c.unicode();
    // control characters too: a line break would end the group
    if (code >= 0x20 && code < 0x7F)
      bytes += char(code);
    else
      bytes += QString::asprintf("\\U+%04X", code).toStdString();
  }
  return bytes;
}
