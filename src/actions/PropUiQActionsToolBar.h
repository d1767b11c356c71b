#pragma once

#include "PropUiQControl.h"

class QAction;
class QToolBar;

/**
 * The item's actions on a QToolBar. Unlike a button row, a command that the
 * bag reports as run makes the embedding control re-read its value.
 */
class PROPWIDGETS_EXPORT PropUiQActionsToolBar : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQActionsToolBar(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateData() override;

  QToolBar* toolBar() const { return m_toolBar; }

private:
  void onActionTriggered(QAction* action);

  QToolBar* m_toolBar = nullptr;
};
