#pragma once

#include "OdDbObjectId.h"
#include "QHostArrowHeadListModel.h"
#include "QHostComboBox.h"
#include <QPointer>

class OdDbDatabase;

namespace host_qt_ui
{

/**
 * The arrowhead picker: the standard arrowheads, each drawn as a picture,
 * and with ArrowUserArrow a last entry "User Arrow..." that opens a chooser
 * of the drawing's blocks once the activation is over; a block picked there
 * is announced by an activation of its own entry. Every entry carries its
 * block's handle as Qt::UserRole (0 for closed filled).
 */
class HOST_EXPORT QHostUiArrowHeadComboBox : public host_qt_ui_core::QHostComboBox
{
  Q_OBJECT

public:
  explicit QHostUiArrowHeadComboBox(QWidget* parent = nullptr);

  void setArrowOptions(ArrowOptions options);
  void setCurrentDatabase(OdDbDatabase* database);
  /** The same as setCurrentDatabase, under the name the other pickers use. */
  void setDatabase(OdDbDatabase* database) { setCurrentDatabase(database); }

  /** Makes the arrowhead current, listing a block of the drawing that is not listed; its index, or -1. */
  int setSelected(const OdDbObjectId& id);
  /** The current arrowhead; false while "User Arrow..." or nothing is current. */
  bool getSelected(OdDbObjectId& id) const;

  /** The index of "User Arrow...", or -1 without it. */
  int chooserIndex() const;

private:
  void rebuild();
  void onOwnActivated(int index);

  ArrowOptions m_options = ArrowOptions(ArrowUserArrow | ArrowDrawingBlocks);
  QPointer<QHostArrowHeadListModel> m_list;
  int m_previous = -1;
};

} // namespace host_qt_ui
