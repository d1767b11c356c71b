#pragma once

#include <QString>
#include <QStringList>

/**
 * A multi-line text's contents as the file codes them, split at its
 * paragraph breaks ("\P"); an escaped backslash ("\\") is no break and stays
 * as it is, as do the other formatting codes.
 */
QStringList mtextParagraphs(const QString& contents);

/** The contents that mtextParagraphs() splits into @p paragraphs. */
QString mtextContents(const QStringList& paragraphs);
