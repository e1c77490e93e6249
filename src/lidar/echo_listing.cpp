// SPDX-License-Identifier: MIT
#include "lidar/echo_listing.h"

#include <array>
#include <cmath>
#include <span>

#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr double kLeastX = 10;               // metres
constexpr double kSameX = 0.0000001;         // metres
constexpr std::uint8_t kEndsTheListing = 3;  // echoes

struct ListedSlot {
  int slot = 0;
  int type = 0;
};

std::span<const ListedSlot> Listed_Slots(std::uint8_t echo_count) {
  static constexpr std::array<ListedSlot, 1> kOne{{{4, 0}}};
  static constexpr std::array<ListedSlot, 2> kTwo{{{4, 1}, {3, 3}}};
  static constexpr std::array<ListedSlot, 2> kThree{{{4, 1}, {3, 2}}};
  static constexpr std::array<ListedSlot, 4> kFour{{{4, 1}, {3, 2}, {2, 2}, {1, 3}}};
  switch (echo_count) {
    case 1:
      return kOne;
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 4:
      return kFour;
    default:
      return {};
  }
}

std::string Echo_Line(const LidarPulse& pulse, const ListedSlot& listed,
                      const GroundHeight& ground) {
  const LidarEcho& echo = pulse.Slot(listed.slot);
  const double height = echo.Z - ground(echo.X, echo.Y);
  return Format(echo.X, "0.00") + " " + Format(echo.Y, "0.00") + " " + Format(echo.Z, "0.00") +
         " " + Format(height, "0.00") + " " + Format(echo.Intensity, "000") + " " +
         std::to_string(listed.type) + " " + Format(pulse.PulseCode, "0") + " 1 \n";
}

bool Two_Share_Their_X(const LidarPulse& pulse, std::span<const ListedSlot> slots) {
  for (std::size_t i = 0; i < slots.size(); ++i) {
    for (std::size_t j = i + 1; j < slots.size(); ++j) {
      if (std::abs(pulse.Slot(slots[i].slot).X - pulse.Slot(slots[j].slot).X) < kSameX) return true;
    }
  }
  return false;
}

}  // namespace

bool List_Pulse(const LidarPulse& pulse, const GroundHeight& ground,
                const ListingComplaint& complain, std::string& lines) {
  const std::span<const ListedSlot> slots = Listed_Slots(pulse.EchoCount);
  for (const ListedSlot& listed : slots) {
    lines += Echo_Line(pulse, listed, ground);
    if (pulse.Slot(listed.slot).X < kLeastX) complain();
  }
  if (pulse.EchoCount == kEndsTheListing) return false;
  if (Two_Share_Their_X(pulse, slots)) complain();
  return true;
}

}  // namespace sylvomex
