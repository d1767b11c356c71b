#include "MTextParagraphs.h"

QStringList mtextParagraphs(const QString& contents)
{
  QStringList paragraphs;
  QString current;
  for (int i = 0; i < contents.size(); ++i)
  {
    const QChar c = contents[i];
    if (c == QLatin1Char('\\') && i + 1 < contents.size())
    {
      const QChar next = contents[i + 1];
      ++i;
      if (next == QLatin1Char('P'))
      {
        paragraphs.append(current);
        current.clear();
        continue;
      }
      current.append(c);
      current.append(next);
      continue;
    }
    current.append(c);
  }
  paragraphs.append(current);
  return paragraphs;
}

QString mtextContents(const QStringList& paragraphs)
{
  return paragraphs.join(QStringLiteral("\\P"));
}
