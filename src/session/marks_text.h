// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "state/picture.h"

namespace sylvomex {

/// One mark of a picture as a line of the transcript:
///   point X Y R G B WIDTH
///   line X1 Y1 X2 Y2 R G B WIDTH
///   text X Y "TEXT" "FONT" SIZE bold|plain R G B
/// in pane pixels, neither rounded nor clipped.
std::string Mark_Text(const Picture& picture, const Mark& mark);

}  // namespace sylvomex
