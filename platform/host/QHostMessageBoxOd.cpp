#include "QHostMessageBoxOd.h"

#include "OdStringQt.h"
#include <QApplication>
#include <QMessageBox>

namespace host_qt_ui
{

static QHostMessageBoxOd::Interceptor& interceptor()
{
  static QHostMessageBoxOd::Interceptor instance;
  return instance;
}

int QHostMessageBoxOd::critical(const OdString& message, int buttons)
{
  return show(Critical, message, buttons);
}

int QHostMessageBoxOd::information(const OdString& message, int buttons)
{
  return show(Information, message, buttons);
}

void QHostMessageBoxOd::setInterceptor(const Interceptor& replacement)
{
  interceptor() = replacement;
}

int QHostMessageBoxOd::show(Kind kind, const OdString& message, int buttons)
{
  const QString text = toQString(message);
  if (interceptor())
    return interceptor()(kind, text, buttons);
  const auto standardButtons = QMessageBox::StandardButtons(buttons ? buttons : int(Ok));
  QWidget* parent = QApplication::activeWindow();
  const QString title = QApplication::applicationDisplayName();
  if (kind == Critical)
    return QMessageBox::critical(parent, title, text, standardButtons);
  return QMessageBox::information(parent, title, text, standardButtons);
}

} // namespace host_qt_ui
