// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QString>

namespace sylvomex {

/// The text with line ends inserted so that no line is wider than `width` pixels: at blanks, after
/// a slash or backslash, and inside a word only when it alone fills a line. Blanks at an inserted
/// break are removed; existing line ends stay.
QString Wrapped_Text(const QString& text, const QFontMetrics& letters, int width);

/// Pixels of the widest line.
int Widest_Line(const QString& text, const QFontMetrics& letters);

}  // namespace sylvomex
