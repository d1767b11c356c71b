#include "PropWidgetsLogging_p.h"

#include "OdError.h"
#include <QPointer>
#include <QTimer>
#include <atomic>
#include <exception>

Q_LOGGING_CATEGORY(lcPropWidgets, "propwidgets")

namespace propui
{

void warnCaught(const char* failed)
{
  try
  {
    throw;
  }
  catch (const OdError& error)
  {
    qCWarning(lcPropWidgets, "%s (platform error %d)", failed, int(error.code()));
  }
  catch (const std::exception& error)
  {
    qCWarning(lcPropWidgets, "%s (%s)", failed, error.what());
  }
  catch (...)
  {
    qCWarning(lcPropWidgets, "%s", failed);
  }
}

namespace
{

std::atomic<unsigned> reportedMisuses{0};
std::atomic<unsigned> pendingMisuses{0};

unsigned bitOf(GridMisuse misuse)
{
  return 1u << unsigned(misuse);
}

} // namespace

void adviseGridMisuseLater(GridMisuse misuse, const QObject* subject, std::function<bool()> stillWrong)
{
  const unsigned bit = bitOf(misuse);
  if ((reportedMisuses.load() & bit) || (pendingMisuses.fetch_or(bit) & bit))
    return;
  QTimer::singleShot(0, [bit, misuse, alive = QPointer<const QObject>(subject), stillWrong = std::move(stillWrong)] {
    pendingMisuses.fetch_and(~bit);
    if (alive && stillWrong())
      warnGridMisuse(misuse);
  });
}

void warnGridMisuse(GridMisuse misuse)
{
  const unsigned bit = bitOf(misuse);
  if (reportedMisuses.fetch_or(bit) & bit)
    return;
  switch (misuse)
  {
  case GridMisuse::FormatterWithoutBag:
    qCWarning(lcPropWidgets, "A formatter was asked for a value's text before it was given a bag, so the cell "
                             "stays empty: call setPropBag on the formatter too (a group's setPropBag does not "
                             "reach it).");
    break;
  case GridMisuse::ModelNeverBound:
    qCWarning(lcPropWidgets, "A property model is shown in a view but was never given a bag, so the view stays "
                             "empty: the group's setPropBag must forward the bag to every model and delegate its "
                             "attachInterface received (setPropBag(nullptr) says that an empty view is meant).");
    break;
  case GridMisuse::ModelWithoutFormatter:
    qCWarning(lcPropWidgets, "A property model has a bag but no formatter, so its value cells stay empty: give the "
                             "group a formatter, setFormatter(propUiCreateStandardFormatter(parent)).");
    break;
  case GridMisuse::DelegateWithoutBag:
    qCWarning(lcPropWidgets, "A property delegate was asked to paint or edit cells of a model that has a bag, but "
                             "was never given one itself, so the cells stay blank: the group's setPropBag must "
                             "forward the bag to the delegate too.");
    break;
  case GridMisuse::BagAnswersNothing:
    qCWarning(lcPropWidgets, "The bag answered false to getValue for every item, so every value cell is empty: "
                             "getValue must return true with the item's value.");
    break;
  }
}

} // namespace propui
