// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex {

/// Where the working coordinates lie in the world: world = working + shift, metres.
struct WorldFrame {
  double shift_X = 0, shift_Y = 0;
  std::string system;  // its name, short

  bool operator==(const WorldFrame&) const = default;
};

}  // namespace sylvomex
