#pragma once

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiQControl.h"
#include <QPointer>

class QAction;
#include <QToolBar>

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

  QToolBar* toolBar() const { return m_toolBar.data(); }

private Q_SLOTS:
  void onActionTriggered(QAction* action);

private:
  QPointer<QToolBar> m_toolBar;
  /** The bag's actions behind the toolbar's, kept alive as long as their buttons. */
  PropActionArray m_actions;
};
