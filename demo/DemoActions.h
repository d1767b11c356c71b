#pragma once

#include "PropAction.h"
#include <QIcon>
#include <QString>
#include <functional>

/** A command of the sample bag: a caption, an optional picture and what it does. */
class DemoAction : public PropAction
{
public:
  DemoAction(const QString& caption, const QIcon& icon, std::function<bool()> run);

  bool execute(const PropVariant& in, PropVariant& out) override;
  OdString name() override;
  OdSharedPtr<PropIcon> icon() override;

private:
  QString m_caption;
  QIcon m_icon;
  std::function<bool()> m_run;
};
