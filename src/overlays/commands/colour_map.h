// SPDX-License-Identifier: MIT
// The colour map file: one colour a row (red, green, blue bytes), rows counted from 1.
#pragma once

#include "platform/drive_map.h"
#include "platform/table.h"
#include "workspace/state/control.h"

namespace sylvomex {

using ColourMap = Table<Colour, 1, 64>;

/// Rows that the file does not have stay black. RunTimeError(SubscriptOutOfRange) naming file
/// and line for a 65th row, those of the list reader for what is no byte.
ColourMap Read_Colour_Map(const FilePath& file);

/// Row of a value on a scale whose ends are lowest and highest: the scale is cut into 0 to 255,
/// four steps to a row. Values off the scale take row 1 or 63.
int Colour_Row(double value, double lowest, double highest);

}  // namespace sylvomex
