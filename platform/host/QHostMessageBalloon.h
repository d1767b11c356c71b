#pragma once

#include "HostExport.h"
#include <QPointer>
#include <QWidget>

class QLabel;

namespace host_qt_ui
{

/**
 * A message shown at the field it is about. It takes no focus, closes on
 * the next key or click anywhere in the application (which still goes
 * where it was meant to), and closes when its field or window goes away.
 * One balloon is shown at a time.
 */
class HOST_EXPORT QHostMessageBalloon : public QWidget
{
  Q_OBJECT

public:
  /** Shows the text at the field, closing any balloon already shown; the balloon deletes itself when closed. */
  static QHostMessageBalloon* showAt(QWidget* field, const QString& text, bool error);
  /** The balloon shown now, or null. */
  static QHostMessageBalloon* current();

  QWidget* field() const { return m_field; }
  QString text() const;
  /** True when the balloon hangs below its field, false when above it. */
  bool isBelowField() const { return m_below; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  QHostMessageBalloon(QWidget* field, const QString& text, bool error);
  void place();
  QPainterPath outline() const;
  int arrowSize() const;

  QPointer<QWidget> m_field;
  QPointer<QLabel> m_label;
  bool m_below = true;
};

} // namespace host_qt_ui
