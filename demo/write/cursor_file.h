// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex::demo {

/// The bytes of a cursor file with one picture of 32 x 32 pixels, two colours and a mask: a white
/// cross one pixel thin, transparent elsewhere, with its hot spot at (15, 15) counted from the top
/// left corner. gap: transparent pixels on each of the four arms next to the hot spot, which is
/// transparent itself; arm: pixels from the hot spot to the end of an arm.
std::string Cross_Cursor(int gap, int arm);

}  // namespace sylvomex::demo
