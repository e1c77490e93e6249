// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {

/// Longest side of a window's client area, in pixels. Larger ones no screen shows, and the pictures
/// of their panes would fill the memory.
inline constexpr int kLargestWindowSide = 16384;

/// False for a negative side, one beyond the limit and one that is no number.
inline bool Is_Window_Size(double width, double height) {
  const auto fits = [](double side) { return side >= 0 && side <= kLargestWindowSide; };
  return fits(width) && fits(height);
}

/// The reason for refusing a size.
inline std::string Window_Size_Refusal(double width, double height) {
  return "a window of " + Plain_Text(width) + " x " + Plain_Text(height) +
         " pixels: a side has 0 to " + std::to_string(kLargestWindowSide);
}

/// RunTimeError(Overflow) for a size that no window can have.
inline void Require_Window_Size(double width, double height) {
  if (Is_Window_Size(width, height)) return;
  throw RunTimeError(Failure::Overflow, Window_Size_Refusal(width, height));
}

}  // namespace sylvomex
