#include "PropUiInputFlash.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

namespace
{

// Long enough to be seen, short enough not to be in the way of the next key.
constexpr int kFlashMs = 180;

/**
 * Which widget is taking a printable key just now, if any. Keys go to one
 * widget at a time, so one watch on the application serves every field.
 */
class TypedKeyWatch : public QObject
{
public:
  static TypedKeyWatch* instance()
  {
    // Goes with the application; a later application gets a watch of its own.
    static QPointer<TypedKeyWatch> watch;
    if (!watch && QCoreApplication::instance())
    {
      watch = new TypedKeyWatch(QCoreApplication::instance());
      QCoreApplication::instance()->installEventFilter(watch);
    }
    return watch;
  }

  /** Whether a printable key is being typed into one of the two widgets. */
  bool isTypingInto(const QObject* first, const QObject* second) const
  {
    return m_typingInto && (m_typingInto == first || m_typingInto == second);
  }

  // Called for every event of the application: only keys and focus changes do any work.
  bool eventFilter(QObject* watched, QEvent* event) override
  {
    switch (event->type())
    {
    case QEvent::KeyPress:
    {
      const QString text = static_cast<QKeyEvent*>(event)->text();
      m_typingInto = !text.isEmpty() && text.at(0).isPrint() ? watched : nullptr;
      break;
    }
    case QEvent::KeyRelease:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      m_typingInto = nullptr;
      break;
    default:
      break;
    }
    return false;
  }

private:
  explicit TypedKeyWatch(QObject* parent) : QObject(parent) {}

  /** Compared, never followed: the widget may be gone by the next key. */
  const QObject* m_typingInto = nullptr;
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
  // A spin box hands its keys to its edit directly, past the application:
  // the key is seen arriving at the spin box.
  TypedKeyWatch* typing = TypedKeyWatch::instance();
  if (!typing)
    return;
  QPointer<QWidget> target(editor);
  connect(edit, &QLineEdit::inputRejected, editor, [target, edit]() {
    TypedKeyWatch* watch = TypedKeyWatch::instance();
    if (target && watch && watch->isTypingInto(edit, target))
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
