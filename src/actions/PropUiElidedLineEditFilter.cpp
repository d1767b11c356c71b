#include "PropUiElidedLineEditFilter.h"

#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextLayout>

namespace
{

QStyleOptionFrame frameOption(QLineEdit* edit)
{
  QStyleOptionFrame option;
  option.initFrom(edit);
  option.rect = edit->contentsRect();
  option.lineWidth = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit) : 0;
  option.midLineWidth = 0;
  option.state |= QStyle::State_Sunken;
  if (edit->isReadOnly())
    option.state |= QStyle::State_ReadOnly;
  option.features = QStyleOptionFrame::None;
  return option;
}

} // namespace

PropUiElidedLineEditFilter::PropUiElidedLineEditFilter(QLineEdit* lineEdit) : PropUiQEventFilter(lineEdit)
{
  if (!lineEdit)
    return;
  lineEdit->installEventFilter(this);
  prepareLayout(lineEdit);
}

PropUiElidedLineEditFilter::~PropUiElidedLineEditFilter()
{
  for (auto& entry : m_layouts)
    delete entry.second;
}

QRect PropUiElidedLineEditFilter::contentsRect(QLineEdit* edit) const
{
  const QStyleOptionFrame option = frameOption(edit);
  return edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
}

void PropUiElidedLineEditFilter::prepareLayout(QLineEdit* edit)
{
  const QRect rect = contentsRect(edit);
  QTextLayout*& layout = m_layouts[edit];
  if (!layout)
  {
    layout = new QTextLayout;
    layout->setCacheEnabled(true);
  }
  const QString elided = edit->fontMetrics().elidedText(edit->text(), Qt::ElideRight, rect.width());
  if (layout->text() != elided)
    layout->setText(elided);
  layout->setFont(edit->font());
  QTextOption option(edit->alignment());
  option.setWrapMode(QTextOption::NoWrap);
  layout->setTextOption(option);
  layout->beginLayout();
  QTextLine line = layout->createLine();
  if (line.isValid())
    line.setLineWidth(rect.width());
  layout->endLayout();
}

void PropUiElidedLineEditFilter::paint(QLineEdit* edit)
{
  QPainter painter(edit);
  QStyleOptionFrame option = frameOption(edit);
  painter.setPen(edit->palette().color(QPalette::Text));
  edit->style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, edit);

  const auto it = m_layouts.find(edit);
  if (it == m_layouts.end() || it->second->lineCount() < 1)
    return;
  QTextLayout* layout = it->second;
  const QRect rect = contentsRect(edit);
  painter.setClipRect(rect);

  const QTextLine line = layout->lineAt(0);
  const Qt::Alignment align = QStyle::visualAlignment(edit->layoutDirection(), edit->alignment());
  const qreal textWidth = line.naturalTextWidth();
  qreal x = rect.x();
  if (align & Qt::AlignRight)
    x = rect.right() + 1 - textWidth;
  else if (align & Qt::AlignHCenter)
    x = rect.x() + (rect.width() - textWidth) / 2.0;
  const QFontMetrics metrics(edit->font());
  const qreal y = rect.y() + (rect.height() - metrics.height() + 1) / 2.0;
  // Line positions inside the layout start at 0; the layout is drawn at its own offset.
  layout->draw(&painter, QPointF(x - line.x(), y - line.y()));
}

bool PropUiElidedLineEditFilter::eventFilter(QObject* watched, QEvent* event)
{
  auto* edit = qobject_cast<QLineEdit*>(watched);
  if (!edit || edit->hasFocus())
    return false;
  if (event->type() == QEvent::Resize)
  {
    prepareLayout(edit);
    return false;
  }
  // An empty edit paints itself, so that its placeholder ("*varies*") shows.
  if (event->type() == QEvent::Paint && !edit->text().isEmpty())
  {
    // The text may have changed since the last resize.
    prepareLayout(edit);
    paint(edit);
    return true;
  }
  return false;
}
