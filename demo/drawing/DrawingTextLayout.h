#pragma once

#include <QString>
#include <QStringList>

class QFontMetricsF;

/** What a text shows: its %% codes (diameter, degree, plus-minus, percent) as the characters they stand for. */
QString drawnText(const QString& text);

/**
 * The paragraphs of a multi-line text: split at its paragraph and column
 * breaks, its formatting codes (font, height, colour, tracking, underline,
 * ...) removed as the canvas draws them in one font, stacked fractions as
 * a/b, escaped and Unicode characters as themselves.
 */
QStringList drawnParagraphs(const QString& text);

/**
 * @p paragraphs broken into lines no wider than @p width (in the units of
 * @p metrics), between words; a word wider than that has a line of its own.
 * A width of 0 or less breaks only between paragraphs.
 */
QStringList wrappedLines(const QStringList& paragraphs, const QFontMetricsF& metrics, double width);
