// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFontMetrics>
#include <QString>

namespace sylvomex {

/// A text colour as it is on a light ground; on a dark one its lightness is turned over, so that it
/// stands out as much.
QColor Readable_On(const QColor& ground, const QColor& text);

/// A text in a narrow room, without a part of a number: its numbers lose decimals, as many as must
/// be, then whole words go from its end. A single word that does not fit becomes three dots.
QString Shortened(const QString& text, const QFontMetrics& letters, int room);

/// The first of several wordings that fits; the last one, shortened, where none does.
QString First_That_Fits(const QStringList& fullest_first, const QFontMetrics& letters, int room);

}  // namespace sylvomex
