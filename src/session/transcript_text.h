// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "state/screen.h"

namespace sylvomex {

/// The text as one line: every line break becomes one blank.
std::string One_Line(std::string_view text);

/// One_Line in double quotes, with inner quotes doubled.
std::string Quoted(std::string_view text);

/// "ok", "cancel", "yes" or "no".
std::string Answer_Name(Answer answer);

}  // namespace sylvomex
