#pragma once

#include "HostExport.h"
#include <QProxyStyle>

/**
 * The host's style over a base style: a checked push or tool button is
 * filled with the theme's highlight, made to stand apart from an unchecked
 * button by at least 3:1, with its caption in whichever text colour reads
 * better on it.
 */
class HOST_EXPORT HostQtStyle : public QProxyStyle
{
  Q_OBJECT

public:
  /** Builds over the style that the factory makes for baseKey ("fusion", ...). */
  explicit HostQtStyle(const QString& baseKey);

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;

  /** The least contrast between a checked and an unchecked button's background. */
  static constexpr double kCheckedContrast = 3.0;

  /** The background of a checked button under the palette. */
  static QColor checkedButtonColor(const QPalette& palette);
  /** The caption colour of a checked button under the palette. */
  static QColor checkedButtonTextColor(const QPalette& palette);
  /** WCAG relative luminance of an opaque colour, 0 (black) to 1 (white). */
  static double relativeLuminance(const QColor& color);
  /** WCAG contrast ratio of two opaque colours, 1 to 21. */
  static double contrastRatio(const QColor& a, const QColor& b);
};
