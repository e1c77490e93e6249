// SPDX-License-Identifier: MIT
// Other libraries that cut and scale a pane out of the same raw file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace sylvomex::bench {

/// A square window of a raw colour file: columns and rows from col, raw_row on.
struct PaneWindow {
  int col = 0;
  int raw_row = 0;
  int size = 0;
};

/// The raw file of the pane benchmarks, square.
struct PaneSource {
  std::filesystem::path file;
  std::span<const std::uint8_t> bytes;  // the same mapping for everybody who takes one
  int size = 0;
};

/// Fills a pane of pane_size x pane_size blue, green, red pixels.
using PanePainter =
    std::function<void(const PaneWindow& window, int pane_size, std::span<std::uint8_t> bgr)>;

struct PanePeer {
  std::string name;
  PanePainter paint;
};

/// Reads what a pane needs of the mapped file and does nothing else: copies its rows, or when they
/// are passed over by steps looks at each of their cache lines. No pane comes sooner than that.
PanePeer Pane_Bare_Reading(const PaneSource& source);

/// The peers that this build has, and the bare reading.
std::vector<PanePeer> Pane_Peers(const PaneSource& source);

}  // namespace sylvomex::bench
