#pragma once

// Everything the library reports goes through one category, so that a host can
// silence it or raise it (QT_LOGGING_RULES="propwidgets.warning=false").

#include <QLoggingCategory>
#include <functional>

class QObject;

Q_DECLARE_LOGGING_CATEGORY(lcPropWidgets)

namespace propui
{

/**
 * Logs the exception being handled, for a catch block that keeps what a
 * host's bag throws out of Qt's event loop: what failed, then what was thrown
 * (a platform error's code, a standard exception's text). Call it only inside
 * a catch block.
 */
void warnCaught(const char* failed);

/** A way of wiring a grid that leaves its cells empty without an error of its own. */
enum class GridMisuse : unsigned
{
  FormatterWithoutBag,
  ModelNeverBound,
  ModelWithoutFormatter,
  DelegateWithoutBag,
  BagAnswersNothing
};

/**
 * Tells the host developer what to do about a grid wired so that it shows
 * nothing, once for each kind of mistake in the life of the process: the
 * mistake repeats on every paint, the advice does not need to.
 */
void warnGridMisuse(GridMisuse misuse);

/**
 * The same advice, given only if the mistake still stands once the events of
 * the moment are done: a host binds a grid's pieces one after another, and a
 * view may ask one of them for cells in between. Nothing is said when the
 * subject is gone by then.
 */
void adviseGridMisuseLater(GridMisuse misuse, const QObject* subject, std::function<bool()> stillWrong);

} // namespace propui
