#include "QHostTextEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QRegularExpression>

namespace host_qt_ui
{

QHostTextEdit::QHostTextEdit(QWidget* parent) : QHostLineEdit(parent) {}

void QHostTextEdit::setTextOptions(int options)
{
  m_textOptions = options & (SelectOnDoubleClick | FlattenPastedLines);
  enableSelectOnDClick(m_textOptions & SelectOnDoubleClick);
}

QString QHostTextEdit::flattened(const QString& text)
{
  static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\t]+"));
  QString result = text;
  result.replace(breaks, QStringLiteral(" "));
  return result;
}

void QHostTextEdit::keyPressEvent(QKeyEvent* event)
{
  // A QLineEdit keeps only the first line of a multi-line paste; a property
  // value read from a note or a table should arrive whole, on one line.
  if ((m_textOptions & FlattenPastedLines) && event->matches(QKeySequence::Paste) && !isReadOnly())
  {
    const QString pasted = QApplication::clipboard()->text();
    if (pasted.contains(QLatin1Char('\n')) || pasted.contains(QLatin1Char('\r')) || pasted.contains(QLatin1Char('\t')))
    {
      insert(flattened(pasted));
      event->accept();
      return;
    }
  }
  QHostLineEdit::keyPressEvent(event);
}

} // namespace host_qt_ui
