#pragma once

#include <QString>

namespace corvane::drawing {

/// The text on one line: line breaks, control characters and marks that turn the direction of what
/// follows become blanks.
QString onOneLine(QString text);

/// The text cut in its middle to at most `longest` characters as a reader counts them.
QString shortened(const QString &text, qsizetype longest);

/// The text with places to wrap in words too long for a line.
QString breakable(const QString &text);

/// The text as a tool tip shows it literally.
QString toolTipText(const QString &text);

/// The text as a label that gives '&' a meaning shows it literally.
QString withoutMnemonic(QString text);

} // namespace corvane::drawing
