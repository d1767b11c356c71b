#pragma once

// What the random hosts share: an application that catches what would cross
// the event loop, the run's numbers from the environment, the kinds to drive
// and a user who answers modal windows.

#include "OdError.h"
#include "OdRxDictionary.h"
#include "OdStringQt.h"
#include "PropWidgetsService.h"
#include "RandomBag.h"
#include <QDialog>
#include <QTimer>
#include <QtTest>
#include <QApplication>
#include <QStringList>
#include <exception>
#include <vector>

namespace
{

/** Records every exception that would otherwise cross Qt's event loop. */
class CatchingApplication : public QApplication
{
public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override
  {
    const int type = int(event->type());
    try
    {
      return QApplication::notify(receiver, event);
    }
    catch (const OdError& e)
    {
      escaped << QStringLiteral("OdError %1 out of event %2").arg(int(e.code())).arg(type);
    }
    catch (const std::exception& e)
    {
      escaped << QStringLiteral("%1 out of event %2").arg(QLatin1String(e.what())).arg(type);
    }
    catch (...)
    {
      escaped << QStringLiteral("unknown exception out of event %1").arg(type);
    }
    return true;
  }

  QStringList escaped;
};

CatchingApplication* application()
{
  return static_cast<CatchingApplication*>(QCoreApplication::instance());
}

unsigned int environmentNumber(const char* name, unsigned int fallback)
{
  bool ok = false;
  const unsigned int value = qEnvironmentVariable(name).toUInt(&ok, 0);
  return ok ? value : fallback;
}

/** A run's seed and length: fixed by default, so that a failure in CI replays; PROP_FUZZ_SEED and PROP_FUZZ_OPS change them. */
struct FuzzRun
{
  FuzzRun(unsigned int defaultSeed, int defaultOperations)
    : seed(environmentNumber("PROP_FUZZ_SEED", defaultSeed)),
      operations(int(environmentNumber("PROP_FUZZ_OPS", unsigned(defaultOperations))))
  {
    qInfo("PROP_FUZZ_SEED=%u PROP_FUZZ_OPS=%d", seed, operations);
  }

  const unsigned int seed;
  const int operations;
};

/** The GUIDs the registry holds, so a newly registered kind is driven without changing this test. */
std::vector<OdGUID> registeredKinds()
{
  const QStringList skipped = qEnvironmentVariable("PROP_FUZZ_SKIP_KINDS").toUpper().split(QLatin1Char(','));
  std::vector<OdGUID> kinds;
  const OdRxObjectPtr found = odrxSysRegistry()->getAt(OdString(PROPWIDGETS_SERVICE_KEY));
  const PropWidgetsServicePtr service = PropWidgetsService::cast(found.get());
  if (!service)
    return kinds;
  for (const auto& entry : service->factories())
  {
    OdGUID guid;
    if (guid.fromString(entry.first) && !skipped.contains(toQString(guid.toString(1)).toUpper()))
      kinds.push_back(guid);
  }
  return kinds;
}

/**
 * The user in front of a modal window that the library opened (a chooser, a
 * message box): while its event loop runs, posted events, the host's deferred
 * deletions among them, go on. Each turn of the loop the user may wait, pick
 * a colour of the palette, accept or cancel.
 */
class ModalAnswerer : public QObject
{
public:
  explicit ModalAnswerer(unsigned int seed) : m_dice(seed)
  {
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &ModalAnswerer::answer);
    m_timer.start();
  }

  int answered = 0;

private:
  void answer()
  {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || m_dice.chance(0.3))
      return;
    ++answered;
    const QList<QWidget*> parts = dialog->findChildren<QWidget*>();
    for (QWidget* part : parts)
      if (part->accessibleName() == QStringLiteral("Palette colours") && m_dice.chance(0.5))
      {
        QTest::mouseClick(part, Qt::LeftButton, Qt::NoModifier, QPoint(m_dice.below(part->width()), m_dice.below(part->height())));
        return;
      }
    if (m_dice.chance(0.5))
      dialog->accept();
    else
      dialog->reject();
  }

  Dice m_dice;
  QTimer m_timer;
};

} // namespace
