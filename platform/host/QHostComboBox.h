#pragma once

#include "HostExport.h"
#include <QComboBox>

namespace host_qt_ui_core
{

/**
 * The host's combo box; in a scrolling panel the wheel can be left to the
 * panel. With no entry current, a non-editable box shows its placeholder
 * text in the palette's placeholder colour, as an editable one does.
 */
class HOST_EXPORT QHostComboBox : public QComboBox
{
  Q_OBJECT

public:
  explicit QHostComboBox(QWidget* parent = nullptr);

  void disableMouseWheel(bool disable);
  bool isMouseWheelDisabled() const { return m_wheelDisabled; }
  /** Editable, completing from its own entries; typing never adds an entry. */
  void setEditableWithCompleter(bool on = true);

protected:
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  bool m_wheelDisabled = false;
};

} // namespace host_qt_ui_core
