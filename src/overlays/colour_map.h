// SPDX-License-Identifier: MIT
// The colour map file: one colour a row (red, green, blue bytes), rows counted from 1.
#pragma once

#include "platform/colour.h"
#include "platform/drive_map.h"
#include "platform/table.h"

namespace sylvomex {

using ColourMap = Table<Colour, 1, 64>;

/// Rows that the file does not have stay black. RunTimeError(SubscriptOutOfRange) naming file
/// and line for a 65th row, those of the list reader for what is no byte.
ColourMap Read_Colour_Map(const FilePath& file);

/// Row of a value on a scale whose ends are lowest and highest: index i = 255 - (255 - (value -
/// lowest) 255 / (highest - lowest)), rounded to an integer; an i below 4 becomes 4, one above
/// 254 becomes 253; the row is i / 4, rounded (both half to even), 1 to 63. The value itself is
/// not brought inside the scale: callers do what is theirs. RunTimeError(Overflow) for a value
/// that is no number.
int Colour_Row(double value, double lowest, double highest);

}  // namespace sylvomex
