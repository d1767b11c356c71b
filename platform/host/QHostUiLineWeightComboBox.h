#pragma once

#include "OdDbLineWeight.h"
#include "QHostComboBox.h"
#include "QHostLineWeightListModel.h"
#include <QPointer>
#include <QRgb>

class OdDbDatabase;

namespace host_qt_ui
{

/**
 * The lineweight picker: ByLayer, ByBlock and Default as the options ask,
 * then every standard width drawn as a line that wide with its millimetres.
 * Every entry carries its width as Qt::UserRole.
 */
class HOST_EXPORT QHostUiLineWeightComboBox : public host_qt_ui_core::QHostComboBox
{
  Q_OBJECT

public:
  explicit QHostUiLineWeightComboBox(QWidget* parent = nullptr);

  /** Rebuilds the entries; the current width stays current when it is still listed. */
  void setLineWeightOption(LineWeightOptions options);
  void setDatabase(OdDbDatabase* database);

  /** The ByLayer entry is drawn with the layer's width; with resolved false, with none. */
  void setLineweightByLayer(OdDb::LineWeight weight, bool resolved);
  /** The Default entry is drawn with the width that Default stands for. */
  void setLineweightByDefault(OdDb::LineWeight weight);

  /** Makes the width current; its index, or -1 when it is not listed. */
  int setSelectedWeight(OdDb::LineWeight weight);
  /** The current entry's width; ByLayer when no entry is current. */
  OdDb::LineWeight getSelectedWeight() const;

private:
  void rebuild();
  /** What an entry standing for another width was last drawn with. */
  struct ShownWeight
  {
    bool holds(const QComboBox& combo, int row, OdDb::LineWeight wanted) const;
    void remember(QComboBox& combo, int row, OdDb::LineWeight wanted, const QIcon& shown);

    OdDb::LineWeight weight = OdDb::kLnWtByLayer;
    QRgb ink = 0;
    qint64 picture = 0;
  };

  LineWeightOptions m_options = LineWeightOptions(LineWeightByLayer | LineWeightByBlock | LineWeightDefault);
  QPointer<QHostLineWeightListModel> m_list;
  ShownWeight m_byLayerShown;
  ShownWeight m_byDefaultShown;
};

} // namespace host_qt_ui
