// SPDX-License-Identifier: MIT
#include "demo/guide/few_colours.h"

#include <algorithm>
#include <array>
#include <map>

namespace sylvomex::demo {
namespace {

constexpr std::size_t kMostColours = 256;

int Channel(std::uint32_t colour, int shift) { return static_cast<int>(colour >> shift & 255); }

struct Used {
  std::uint32_t colour = 0;
  std::uint64_t times = 0;
};

/// Some of the used colours.
struct Box {
  std::span<Used> colours;
  int shift = 0;  // of its longest side
  int length = 0;

  explicit Box(std::span<Used> some) : colours(some) {
    for (const int channel : {16, 8, 0}) {
      const auto [low, high] = std::ranges::minmax(
          colours, {}, [channel](const Used& used) { return Channel(used.colour, channel); });
      const int side = Channel(high.colour, channel) - Channel(low.colour, channel);
      if (side <= length) continue;
      length = side;
      shift = channel;
    }
  }

  /// How many colours lie below the cut; at least one on either side.
  std::size_t Cut() {
    std::ranges::sort(colours, {}, [this](const Used& used) {
      return std::pair(Channel(used.colour, shift), used.colour);
    });
    std::uint64_t all = 0, below = 0;
    for (const Used& used : colours) all += used.times;
    std::size_t cut = 0;
    while (cut + 1 < colours.size() && 2 * below < all) below += colours[cut++].times;
    return cut;
  }

  [[nodiscard]] std::uint32_t Mean() const {
    std::array<std::uint64_t, 3> sums{};
    std::uint64_t all = 0;
    for (const Used& used : colours) {
      for (const int k : {0, 1, 2}) {
        sums[static_cast<std::size_t>(k)] +=
            static_cast<std::uint64_t>(Channel(used.colour, 8 * k)) * used.times;
      }
      all += used.times;
    }
    std::uint32_t colour = 0;
    for (const int k : {2, 1, 0}) {
      const std::uint64_t mean = (sums[static_cast<std::size_t>(k)] + all / 2) / all;
      colour = colour << 8 | static_cast<std::uint32_t>(mean);
    }
    return colour;
  }
};

std::vector<Used> Used_Colours(std::span<const std::uint32_t> pixels) {
  std::vector<std::uint32_t> sorted(pixels.begin(), pixels.end());
  std::ranges::sort(sorted);
  std::vector<Used> used;
  for (const std::uint32_t colour : sorted) {
    if (used.empty() || used.back().colour != colour) used.push_back({colour, 0});
    ++used.back().times;
  }
  return used;
}

std::vector<Box> Cut_Boxes(std::vector<Used>& used) {
  std::vector<Box> boxes{Box(used)};
  while (boxes.size() < kMostColours) {
    const auto longest = std::ranges::max_element(boxes, {}, &Box::length);
    if (longest->length == 0) break;
    const std::size_t cut = longest->Cut();
    const std::span<Used> colours = longest->colours;
    *longest = Box(colours.first(cut));
    boxes.emplace_back(colours.subspan(cut));
  }
  return boxes;
}

}  // namespace

FewColours In_Few_Colours(std::span<const std::uint32_t> pixels) {
  FewColours few;
  if (pixels.empty()) return few;
  std::vector<Used> used = Used_Colours(pixels);
  std::map<std::uint32_t, std::uint8_t> entry_of;
  for (const Box& box : Cut_Boxes(used)) {
    for (const Used& one : box.colours) {
      entry_of[one.colour] = static_cast<std::uint8_t>(few.palette.size());
    }
    few.palette.push_back(box.Mean());
  }
  few.pixels.reserve(pixels.size());
  for (const std::uint32_t pixel : pixels) few.pixels.push_back(entry_of[pixel]);
  return few;
}

}  // namespace sylvomex::demo
