#pragma once

#include "PropWidgetsExport.h"
#include <QAction>

class PropAction;

/** A QAction that mirrors one PropAction on a button. The PropAction is borrowed. */
class PROPWIDGETS_EXPORT PropUiQAction : public QAction
{
  Q_OBJECT

public:
  explicit PropUiQAction(QObject* parent);

  /** Stores the action and copies its caption, picture and states; null shows a blank, enabled action. */
  void setPropAction(PropAction* action);
  PropAction* getPropAction() const;

private:
  PropAction* m_action = nullptr;
};
