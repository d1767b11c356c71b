#pragma once

#include "HostExport.h"
#include <QCheckBox>

namespace host_qt_ui_core
{

/**
 * The host's check box; in switch mode it is drawn as an on/off toggle
 * switch, whose knob rests in the middle, greyed, while partially checked.
 */
class HOST_EXPORT QHostCheckBox : public QCheckBox
{
  Q_OBJECT

public:
  explicit QHostCheckBox(QWidget* parent = nullptr);

  void enableSwitchMode(bool on);
  bool isSwitchMode() const { return m_switchMode; }
  /** Draws the caption in the placeholder colour: it says that values differ, it is not a value. */
  void setCaptionDimmed(bool dimmed);
  bool isCaptionDimmed() const { return m_captionDimmed; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& pos) const override;

private:
  QRectF trackRect() const;
  void paintIndicatorFocusRing();

  bool m_switchMode = false;
  bool m_captionDimmed = false;
};

} // namespace host_qt_ui_core
