// SPDX-License-Identifier: MIT
// Crowns measured elsewhere, and the pulses that hit them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "crowns/place_grid.h"
#include "lidar/pulse_table.h"
#include "platform/list_reader.h"

namespace sylvomex {

/// A row of the list: six items.
struct ListedCrown {
  double X = 0, Y = 0;  // axis, metres
  double TopZ = 0, BaseZ = 0;
  std::uint8_t Code = 0;  // carried
  double Width = 0;
};

/// The next row. RunTimeErrors of the list reader, which name file, line and item.
ListedCrown Read_Listed_Crown(ListReader& file);

/// Slots of a pulse, from 1, whose echoes lie in a crown's upper part.
struct SlotsInside {
  std::array<int, kEchoSlots> slot{};
  int count = 0;
};

/// An echo is inside when it is nearer to the axis than half the width, and not as deep as 0.4
/// of the length of the crown below its top. There is no bound upward, and a slot without an echo,
/// which holds zeros, is taken as it stands.
SlotsInside Slots_Inside(const LidarPulse& pulse, const ListedCrown& crown);

/// The line of a pulse with its line end: crown, pulse and inside echoes, each item followed by
/// a comma.
std::string Hit_Line(const ListedCrown& crown, const LidarPulse& pulse, const SlotsInside& inside);

/// The pulses of one tile by the places of their echoes.
class PulsePlaces {
 public:
  PulsePlaces() = default;
  explicit PulsePlaces(const PulseTable& pulses);

  /// Indices from 1, ascending, of the pulses that may have an echo as near to the crown's axis as
  /// half its width: slots without an echo count as echoes at 0, 0.
  void Near(const ListedCrown& crown, std::vector<std::int32_t>& pulses);

 private:
  std::int32_t pulse_count_ = 0;
  PlaceGrid grid_{{}, {}, 1};
  std::vector<std::int32_t> pulse_of_place_;
  std::vector<std::int32_t> places_;
};

}  // namespace sylvomex
