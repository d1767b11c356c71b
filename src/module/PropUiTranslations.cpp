#include "PropUiTranslations.h"

#include <QCoreApplication>
#include <QTranslator>

QString propUiTranslationsPath()
{
  return QStringLiteral(":/propwidgets/translations/");
}

QTranslator* propUiInstallTranslator(const QLocale& locale)
{
  QCoreApplication* app = QCoreApplication::instance();
  if (!app)
    return nullptr;
  auto* translator = new QTranslator(app);
  if (!translator->load(locale, QStringLiteral("propwidgets"), QStringLiteral("_"), propUiTranslationsPath()) ||
      !QCoreApplication::installTranslator(translator))
  {
    delete translator;
    return nullptr;
  }
  return translator;
}
