#pragma once

#include "OdDbObjectId.h"
#include "QHostPictureListModel.h"

class OdDbDatabase;
class OdDbLinetypeTableRecord;

namespace host_qt_ui
{

/** Which entries a linetype list offers beyond the drawing's own linetypes. */
enum LineTypeOption
{
  LineTypeByLayer = 0x1,
  LineTypeByBlock = 0x2,
  /** A last entry "Other..." opens a chooser (the picker's; a list model has no such row). */
  LineTypeOther = 0x4
};
Q_DECLARE_FLAGS(LineTypeOptions, LineTypeOption)

/**
 * A drawing's linetypes, each drawn as a line with its dash pattern:
 * ByLayer and ByBlock first as the options ask, then the others in the
 * drawing's order. The key of a row is the linetype's handle.
 */
class HOST_EXPORT QHostLineTypeListModel : public QHostPictureListModel
{
  Q_OBJECT

public:
  explicit QHostLineTypeListModel(QObject* parent = nullptr);

  /** Without a database the list is empty. */
  void init(int options, OdDbDatabase* database);
  OdDbDatabase* database() const { return m_database; }

  int findRow(const OdDbObjectId& id) const;
  /** The null id for a row that does not exist. */
  OdDbObjectId idAt(int row) const;

  /** Draws the ByLayer entry with the pattern of the linetype it stands for now. */
  void setByLayerLinetype(const OdDbObjectId& id);

  /** A line with the linetype's dashes; a plain line for a continuous one or none. */
  static QIcon linetypePicture(const OdDbLinetypeTableRecord* linetype);

private:
  OdDbDatabase* m_database = nullptr;
};

} // namespace host_qt_ui

Q_DECLARE_OPERATORS_FOR_FLAGS(host_qt_ui::LineTypeOptions)
