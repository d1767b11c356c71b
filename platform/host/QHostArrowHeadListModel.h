#pragma once

#include "OdDbObjectId.h"
#include "QHostPictureListModel.h"

class OdDbDatabase;

namespace host_qt_ui
{

/** What an arrowhead list offers beyond the standard arrowheads. */
enum ArrowOption
{
  /** A last entry "User Arrow..." opens a chooser of the drawing's blocks (the picker's; a list model has no such row). */
  ArrowUserArrow = 0x1,
  /** The drawing's own blocks that are already in use as arrowheads are listed after the standard ones. */
  ArrowDrawingBlocks = 0x2
};
Q_DECLARE_FLAGS(ArrowOptions, ArrowOption)

/**
 * The arrowheads a dimension may draw, each with its picture. "Closed
 * filled" is drawn without a block and so has the null id; the others are
 * the drawing's blocks of the standard names. The key of a row is the handle.
 */
class HOST_EXPORT QHostArrowHeadListModel : public QHostPictureListModel
{
  Q_OBJECT

public:
  explicit QHostArrowHeadListModel(QObject* parent = nullptr);

  void setCurrentDatabase(OdDbDatabase* database);
  OdDbDatabase* currentDatabase() const { return m_database; }
  /** Without a database only "Closed filled" is listed. */
  void init(int options);

  /** The row of an arrowhead, or -1. */
  int findId(const OdDbObjectId& id) const;
  /** The null id for a row that does not exist, as for "Closed filled". */
  OdDbObjectId idAt(int row) const;
  /** Lists a block of the drawing that is not listed yet; its row, or -1 when the id names no block. */
  int addBlock(const OdDbObjectId& id);

  /** The picture of a standard arrowhead block name ("" for closed filled); a user block gets a plain box. */
  static QIcon arrowPicture(const QString& blockName);
  /** "Closed filled", "Dot", ...; a user block is called by its name. */
  static QString arrowText(const QString& blockName);

private:
  Entry entryOf(const OdDbObjectId& id) const;

  OdDbDatabase* m_database = nullptr;
  QVector<OdDbObjectId> m_added;
};

} // namespace host_qt_ui

Q_DECLARE_OPERATORS_FOR_FLAGS(host_qt_ui::ArrowOptions)
