#pragma once

#include "OdCmColor.h"
#include "QHostComboBox.h"
#include <QRgb>
#include <vector>

class OdDbDatabase;

namespace host_qt_ui
{

/** Which entries a colour picker offers, and how a colour picked in the chooser arrives. */
enum ColorOption
{
  ColorByLayer = 0x1,
  ColorByBlock = 0x2,
  /**
   * The chooser opens after the activation of "Select Colour..." is over, and
   * the colour picked in it is announced by an activation of its own entry.
   * Without it the chooser opens at once and the pick is the current entry
   * when the activation of "Select Colour..." reaches other receivers.
   */
  ColorAnnouncePicked = 0x8
};
Q_DECLARE_FLAGS(ColorOptions, ColorOption)

/** Where a colour that is not listed goes. */
enum OtherAddingMode
{
  /** One entry, before "Select Colour...", holds the last such colour. */
  ReplaceOther = 0,
  /** Each such colour gets an entry of its own, before "Select Colour...". */
  AppendOther = 1
};

/**
 * The colour picker: ByLayer and ByBlock as the options ask, the seven
 * standard colours, the colours added, and "Select Colour..." last, which
 * opens the palette and true-colour chooser. Every entry carries its
 * colour's number (OdCmColor::color) as Qt::UserRole.
 */
class HOST_EXPORT QHostUiColorComboBox : public host_qt_ui_core::QHostComboBox
{
  Q_OBJECT

public:
  explicit QHostUiColorComboBox(QWidget* parent = nullptr, OtherAddingMode mode = AppendOther);

  /** Rebuilds the entries; the colours added so far stay. */
  void setColorOptions(ColorOptions options);
  ColorOptions colorOptions() const { return m_options; }
  void setDatabase(OdDbDatabase* database);
  OdDbDatabase* database() const { return m_database; }

  /** Makes the colour current, adding it when it is not listed; its index. */
  int setSelectedColor(const OdCmColor& color);
  /** The current entry's colour; ByLayer when no colour entry is current. */
  OdCmColor getSelectedColor() const;
  /** Lists the colour, unless it is listed already; its index. */
  int addColor(const OdCmColor& color);
  /** The ByLayer entry shows the layer's colour; with resolved false it shows no colour. */
  void setColorByLayer(const OdCmColor& layerColor, bool resolved);

  /** What an entry shows for the colour: its swatch, as every cell that shows a colour draws it too. */
  static QIcon colorPicture(const OdCmColor& color);

  /** The index of "Select Colour...". */
  int chooserIndex() const { return count() - 1; }

private:
  void rebuild();
  int findColor(const OdCmColor& color) const;
  int insertColor(const OdCmColor& color);
  void onOwnActivated(int index);
  void runChooser(bool announce);

  ColorOptions m_options = ColorOptions(ColorByLayer | ColorByBlock);
  OtherAddingMode m_mode;
  OdDbDatabase* m_database = nullptr;
  std::vector<OdCmColor> m_added;
  OdCmColor m_byLayerShows;
  bool m_byLayerResolved = false;
  QRgb m_byLayerInk = 0;
  qint64 m_byLayerPicture = 0;
  int m_previous = -1;
};

} // namespace host_qt_ui

Q_DECLARE_OPERATORS_FOR_FLAGS(host_qt_ui::ColorOptions)
