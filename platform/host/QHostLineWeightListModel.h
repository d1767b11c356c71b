#pragma once

#include "OdDbLineWeight.h"
#include "QHostPictureListModel.h"

class OdDbDatabase;

namespace host_qt_ui
{

/** Which of the entries that defer to something else a lineweight list offers. */
enum LineWeightOption
{
  LineWeightByLayer = 0x1,
  LineWeightByBlock = 0x2,
  LineWeightDefault = 0x4
};
Q_DECLARE_FLAGS(LineWeightOptions, LineWeightOption)

/** ByLayer, ByBlock and Default as the options ask, then every standard width, each drawn as a line that wide. */
class HOST_EXPORT QHostLineWeightListModel : public QHostPictureListModel
{
  Q_OBJECT

public:
  explicit QHostLineWeightListModel(QObject* parent = nullptr);

  /** The drawing whose default width "Default" is drawn with; may be null. */
  void setDatabase(OdDbDatabase* database);
  void init(int options);

  int findRow(OdDb::LineWeight weight) const;
  /** The width of a row; ByLayer for a row that does not exist. */
  OdDb::LineWeight weightAt(int row) const;

  /** Draws the ByLayer or the Default entry with the width it stands for now. */
  void setByLayerWeight(OdDb::LineWeight weight);
  void setDefaultWeight(OdDb::LineWeight weight);

  /** "0.25 mm", "ByLayer", "ByBlock", "Default". */
  static QString weightText(OdDb::LineWeight weight);
  /** A line of the width, in the theme's ink; nothing for ByLayer and ByBlock. */
  static QIcon weightPicture(OdDb::LineWeight weight);

private:
  OdDbDatabase* m_database = nullptr;
};

} // namespace host_qt_ui

Q_DECLARE_OPERATORS_FOR_FLAGS(host_qt_ui::LineWeightOptions)
