// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex {

/// 64 rows "red,green,blue" of bytes, from dark blue through cyan, green and yellow to dark red: at
/// v = row / 64, rows from 1, green is the tent function 1.5 - abs(4 v - 2), red the same tent a
/// quarter higher and blue a quarter lower, each clamped to 0 .. 1 and multiplied by 255.
std::string Jet_Colour_Map();

}  // namespace sylvomex
