#include "PropUiInputFlash.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

namespace
{

// Long enough to be seen, short enough not to be in the way of the next key.
constexpr int kFlashMs = 180;

/** Whether the edit is taking a printable key just now. */
class TypedKeyWatch : public QObject
{
public:
  explicit TypedKeyWatch(QObject* parent) : QObject(parent) {}
  bool isTyping() const { return m_typing; }

  bool eventFilter(QObject*, QEvent* event) override
  {
    switch (event->type())
    {
    case QEvent::KeyPress:
    {
      const QString text = static_cast<QKeyEvent*>(event)->text();
      m_typing = !text.isEmpty() && text.at(0).isPrint();
      break;
    }
    case QEvent::KeyRelease:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      m_typing = false;
      break;
    default:
      break;
    }
    return false;
  }

private:
  bool m_typing = false;
};

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
  // QLineEdit also reports a rejection when a refresh sets a text its
  // validator does not take (a value shown with its unit): only a printable
  // key the user is typing into the edit may flash it.
  // A spin box hands its keys to its edit directly, past the edit's filters.
  auto* typing = new TypedKeyWatch(edit);
  edit->installEventFilter(typing);
  if (editor != edit)
    editor->installEventFilter(typing);
  QPointer<QWidget> target(editor);
  connect(edit, &QLineEdit::inputRejected, editor, [target, typing]() {
    if (typing->isTyping())
      flash(target);
  });
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
