#pragma once

#include "HostExport.h"
#include "OdCmColor.h"
#include "OdDbObjectId.h"
#include <functional>

class OdDbDatabase;
class QWidget;

namespace host_qt_ui
{

/**
 * The modal choosers that the pickers' last entries open. Each is a hook: a
 * test or an unattended run replaces it, so that no modal window ever opens
 * there. A chooser answers true and fills its output when the user picked.
 */
class HOST_EXPORT QHostUiChoosers
{
public:
  typedef std::function<bool(QWidget* parent, OdCmColor& color)> ColorChooser;
  typedef std::function<bool(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id)> ObjectChooser;

  /** The palette and true-colour chooser, starting at the given colour. */
  static bool chooseColor(QWidget* parent, OdCmColor& color);
  /** A linetype of the database. */
  static bool chooseLineType(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id);
  /** A block of the database to draw as an arrowhead. */
  static bool chooseArrowBlock(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id);

  /** An empty function puts the modal chooser back. */
  static void setColorChooser(const ColorChooser& chooser);
  static void setLineTypeChooser(const ObjectChooser& chooser);
  static void setArrowBlockChooser(const ObjectChooser& chooser);
};

} // namespace host_qt_ui
