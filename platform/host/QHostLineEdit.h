#pragma once

#include "HostExport.h"
#include <QLineEdit>

namespace host_qt_ui_core
{

/** The host's single-line editor. */
class HOST_EXPORT QHostLineEdit : public QLineEdit
{
  Q_OBJECT

public:
  explicit QHostLineEdit(QWidget* parent = nullptr);

  /** Keeps the placeholder a dimmed form of the text colour, across theme changes. */
  void setAutoChangePlaceholderTextColor(bool on);
  bool autoChangePlaceholderTextColor() const { return m_autoPlaceholderColor; }
  /** A double click selects the whole text rather than one word. */
  void enableSelectOnDClick(bool on = true);
  bool selectOnDClick() const { return m_selectOnDClick; }

protected:
  void changeEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
  void applyPlaceholderColor();

  bool m_autoPlaceholderColor = false;
  bool m_selectOnDClick = false;
  bool m_applyingPalette = false;
};

} // namespace host_qt_ui_core
