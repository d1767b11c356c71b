#pragma once

#include "OdDbObjectId.h"
#include "QHostComboBox.h"
#include "QHostLineTypeListModel.h"
#include <QPointer>
#include <QRgb>
#include <QVector>

class OdDbDatabase;
class OdDbLinetypeTableRecord;

namespace host_qt_ui
{

/**
 * The linetype picker: the drawing's linetypes, each drawn with its dash
 * pattern, and with LineTypeOther a last entry "Other..." that opens the
 * linetype chooser once the activation is over; a linetype picked there is
 * announced by an activation of its own entry. Every entry carries its
 * linetype's handle as Qt::UserRole.
 */
class HOST_EXPORT QHostUiLineTypeComboBox : public host_qt_ui_core::QHostComboBox
{
  Q_OBJECT

public:
  explicit QHostUiLineTypeComboBox(QWidget* parent = nullptr);

  void setLineTypeOption(LineTypeOptions options);
  void setDatabase(OdDbDatabase* database);

  /** The ByLayer entry is drawn with the layer's linetype; with resolved false, as a plain line. */
  void setLinetypeByLayer(const OdDbObjectId& id, bool resolved);

  /** Makes the linetype current; its index, or -1 (nothing current) when the drawing has no such linetype. */
  int setSelectedLineType(const OdDbObjectId& id);
  /** The current entry's linetype; the null id when none is current. */
  OdDbObjectId selectedLineType() const;

  /** The index of "Other...", or -1 without it. */
  int chooserIndex() const;

private:
  void rebuild();
  int findLinetype(const OdDbObjectId& id) const;
  /** Whether the ByLayer entry at `row` already shows the picture of these dashes. */
  bool byLayerShows(const OdDbLinetypeTableRecord* linetype, int row) const;
  void onOwnActivated(int index);

  LineTypeOptions m_options = LineTypeOptions(LineTypeByLayer | LineTypeByBlock);
  QPointer<QHostLineTypeListModel> m_list;
  OdDbDatabase* m_database = nullptr;
  int m_previous = -1;
  QRgb m_byLayerInk = 0;
  qint64 m_byLayerPicture = 0;
  double m_byLayerPattern = 0.0;
  QVector<double> m_byLayerDashes;
};

} // namespace host_qt_ui
