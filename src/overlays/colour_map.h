// SPDX-License-Identifier: MIT
// The colour map file: one colour per row (red, green, blue bytes), rows counted from 1.
#pragma once

#include "platform/colour.h"
#include "platform/drive_map.h"
#include "platform/table.h"

namespace sylvomex {

using ColourMap = Table<Colour, 1, 64>;

/// Rows missing from the file stay black. RunTimeError(SubscriptOutOfRange) naming file and line
/// for a 65th row, errors of the list reader for values that are not bytes.
ColourMap Read_Colour_Map(const FilePath& file);

/// Row of a value on a scale from lowest to highest: index i = 255 - (255 - (value -
/// lowest) 255 / (highest - lowest)), rounded to an integer; an i below 4 becomes 4, one above
/// 254 becomes 253; the row is i / 4, rounded (both half to even), 1 to 63. The value itself is
/// not clamped to the scale; callers that need it do so. RunTimeError(Overflow) for a NaN
/// value.
int Colour_Row(double value, double lowest, double highest);

}  // namespace sylvomex
