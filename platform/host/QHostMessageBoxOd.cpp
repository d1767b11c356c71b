#include "QHostMessageBoxOd.h"

#include "OdStringQt.h"
#include "QHostMessageBalloon.h"
#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace host_qt_ui
{

static QHostMessageBoxOd::Interceptor& interceptor()
{
  static QHostMessageBoxOd::Interceptor instance;
  return instance;
}

static QHostMessageBoxOd::Presentation& presentationSetting()
{
  static QHostMessageBoxOd::Presentation instance = QHostMessageBoxOd::Balloon;
  return instance;
}

int QHostMessageBoxOd::critical(const OdString& message, int buttons, QWidget* anchor)
{
  return show(Critical, message, buttons, anchor);
}

int QHostMessageBoxOd::information(const OdString& message, int buttons, QWidget* anchor)
{
  return show(Information, message, buttons, anchor);
}

void QHostMessageBoxOd::setPresentation(Presentation presentation)
{
  presentationSetting() = presentation;
}

QHostMessageBoxOd::Presentation QHostMessageBoxOd::presentation()
{
  return presentationSetting();
}

void QHostMessageBoxOd::setInterceptor(const Interceptor& replacement)
{
  interceptor() = replacement;
}

int QHostMessageBoxOd::show(Kind kind, const OdString& message, int buttons, QWidget* anchor)
{
  const QString text = toQString(message);
  if (interceptor())
    return interceptor()(kind, text, buttons);
  // A field that has been hidden since the message was posted gives way to the one with the focus.
  QWidget* field = anchor && anchor->isVisible() ? anchor : QApplication::focusWidget();
  if (presentation() == Balloon && field && field->isVisible())
  {
    QHostMessageBalloon::showAt(field, text, kind == Critical);
    return Ok;
  }
  const auto standardButtons = QMessageBox::StandardButtons(buttons ? buttons : int(Ok));
  // The active window is the host's, not ours: it may be deleted while the box
  // waits, and takes the box with it, so the box is not kept on the stack.
  const QPointer<QMessageBox> box =
    new QMessageBox(kind == Critical ? QMessageBox::Critical : QMessageBox::Information,
                    QApplication::applicationDisplayName(), text, standardButtons, QApplication::activeWindow());
  const int answer = box->exec();
  if (!box)
    return Cancel;
  delete box;
  return answer == -1 ? int(Cancel) : answer;
}

} // namespace host_qt_ui
