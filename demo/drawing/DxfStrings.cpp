#include "DxfStrings.h"

#include <QRegularExpression>
#include <QTextCodec>

QString fromDxfString(const std::string& bytes)
{
  // Newer files are UTF-8, older ones a Windows code page; a byte string that
  // is not valid UTF-8 is taken as Latin-1, which is right for most of them.
  QTextCodec::ConverterState state;
  const QByteArray raw = QByteArray::fromStdString(bytes);
  QString text = QTextCodec::codecForName("UTF-8")->toUnicode(raw.constData(), raw.size(), &state);
  if (state.invalidChars > 0)
    text = QString::fromLatin1(raw);
  if (!text.contains(QLatin1String("\\U+"), Qt::CaseInsensitive))
    return text;
  static const QRegularExpression escape(QStringLiteral("\\\\[Uu]\\+([0-9A-Fa-f]{4})"));
  QString decoded;
  int last = 0;
  auto it = escape.globalMatch(text);
  while (it.hasNext())
  {
    const QRegularExpressionMatch match = it.next();
    decoded += text.midRef(last, match.capturedStart() - last);
    decoded += QChar(char16_t(match.capturedRef(1).toUShort(nullptr, 16)));
    last = match.capturedEnd();
  }
  decoded += text.midRef(last);
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
