#pragma once

#include "HostExport.h"
#include "QHostComboEntryIndex.h"
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
  /** The first entry whose text is `text` ignoring case, as findText(text, Qt::MatchFixedString) finds it. */
  int findTextFast(const QString& text) const { return m_entries.rowOfText(*this, text); }
  /** The first entry whose user data is the unsigned 64-bit `key`; -1 when none. */
  int findKeyFast(qulonglong key) const { return m_entries.rowOfKey(*this, key); }

protected:
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  bool m_wheelDisabled = false;
  mutable QHostComboEntryIndex m_entries;
};

} // namespace host_qt_ui_core
