#include "PropUiInputFlash.h"

#include <QLineEdit>
#include <QPainter>
#include <QTimer>

namespace
{

// Long enough to be seen, short enough not to be in the way of the next key.
constexpr int kFlashMs = 180;

} // namespace

PropUiInputFlash::PropUiInputFlash(QWidget* editor) : QWidget(editor), m_timer(new QTimer(this))
{
  setObjectName(QStringLiteral("inputFlash"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
  m_timer->setSingleShot(true);
  m_timer->setInterval(kFlashMs);
  connect(m_timer.data(), &QTimer::timeout, this, &QWidget::hide);
  hide();
}

void PropUiInputFlash::flash(QWidget* editor)
{
  if (!editor)
    return;
  auto* overlay = editor->findChild<PropUiInputFlash*>(QString(), Qt::FindDirectChildrenOnly);
  if (!overlay)
    overlay = new PropUiInputFlash(editor);
  overlay->setGeometry(editor->rect());
  overlay->raise();
  overlay->show();
  overlay->m_timer->start();
}

void PropUiInputFlash::flashOnRejectedInput(QWidget* editor, QLineEdit* edit)
{
  if (!editor || !edit)
    return;
  QPointer<QWidget> target(editor);
  connect(edit, &QLineEdit::inputRejected, editor, [target]() { flash(target); });
}

bool PropUiInputFlash::isFlashing(const QWidget* editor)
{
  const auto* overlay = editor ? editor->findChild<PropUiInputFlash*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
  return overlay && overlay->isVisible();
}

void PropUiInputFlash::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  QColor tint = palette().color(QPalette::Highlight);
  tint.setAlpha(110);
  painter.fillRect(rect(), tint);
}
