// SPDX-License-Identifier: MIT
#include "platform/wall_clock.h"

namespace sylvomex {
namespace {

std::optional<std::time_t>& Held() {
  static std::optional<std::time_t> held;
  return held;
}

}  // namespace

std::time_t Wall_Clock() { return Held() ? *Held() : std::time(nullptr); }

void Hold_Wall_Clock(std::optional<std::time_t> at) { Held() = at; }

}  // namespace sylvomex
