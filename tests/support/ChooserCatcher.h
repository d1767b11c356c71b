#pragma once

#include "QHostUiChoosers.h"
#include <QVector>

/**
 * Answers every modal chooser of the pickers for as long as it lives, so no
 * test ever opens one: with the colour or id a test sets, or as a cancel.
 */
class ChooserCatcher
{
public:
  ChooserCatcher()
  {
    using host_qt_ui::QHostUiChoosers;
    QHostUiChoosers::setColorChooser([this](QWidget*, OdCmColor& color) {
      ++colorAsked;
      if (!pickColor)
        return false;
      color = colorToPick;
      return true;
    });
    const auto object = [this](QWidget*, OdDbDatabase*, OdDbObjectId& id) {
      ++objectAsked;
      if (idToPick.isNull())
        return false;
      id = idToPick;
      return true;
    };
    QHostUiChoosers::setLineTypeChooser(object);
    QHostUiChoosers::setArrowBlockChooser(object);
  }
  ~ChooserCatcher()
  {
    using host_qt_ui::QHostUiChoosers;
    QHostUiChoosers::setColorChooser(QHostUiChoosers::ColorChooser());
    QHostUiChoosers::setLineTypeChooser(QHostUiChoosers::ObjectChooser());
    QHostUiChoosers::setArrowBlockChooser(QHostUiChoosers::ObjectChooser());
  }

  bool pickColor = false;
  OdCmColor colorToPick;
  /** The null id cancels the linetype and arrow choosers. */
  OdDbObjectId idToPick;
  int colorAsked = 0;
  int objectAsked = 0;
};
