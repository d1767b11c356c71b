#pragma once

#include "QHostMessageBoxOd.h"
#include <QString>
#include <QVector>

/** Catches every message box for as long as it lives, so no test ever opens one. */
class MessageCatcher
{
public:
  struct Shown
  {
    host_qt_ui::QHostMessageBoxOd::Kind kind;
    QString text;
    int buttons;
  };

  MessageCatcher()
  {
    host_qt_ui::QHostMessageBoxOd::setInterceptor(
      [this](host_qt_ui::QHostMessageBoxOd::Kind kind, const QString& text, int buttons) {
        shown.append({kind, text, buttons});
        return int(host_qt_ui::QHostMessageBoxOd::Ok);
      });
  }
  ~MessageCatcher() { host_qt_ui::QHostMessageBoxOd::setInterceptor(host_qt_ui::QHostMessageBoxOd::Interceptor()); }

  QVector<Shown> shown;
};
