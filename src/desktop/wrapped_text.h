// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QString>

namespace sylvomex {

/// The text with line ends put in so that no line is wider than `width` pixels: at blanks, behind a
/// slash or backslash, and inside a word only where a line holds nothing else. The blanks at which
/// a line was broken go; line ends that the text has stay.
QString Wrapped_Text(const QString& text, const QFontMetrics& letters, int width);

/// Pixels of the widest line.
int Widest_Line(const QString& text, const QFontMetrics& letters);

}  // namespace sylvomex
