// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex::demo {

/// 64 rows "red,green,blue" of bytes, from dark blue over cyan, green and yellow to dark red: at
/// the share v = row / 64, rows from 1, green is the tent 1.5 - |4 v - 2|, red the same tent a
/// quarter higher and blue a quarter lower, each limited to 0 .. 1 and times 255.
std::string Jet_Colour_Map();

}  // namespace sylvomex::demo
