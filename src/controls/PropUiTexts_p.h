#pragma once

#include <QCoreApplication>
#include <QString>

/**
 * Texts that several controls and models show. Each has one translation
 * context, so that a catalogue translates it once and every kind agrees.
 */
class PropUiTexts
{
  Q_DECLARE_TR_FUNCTIONS(PropUiTexts)

public:
  /** What a field shows when the selected objects hold different values. */
  static QString varies();
};
