// SPDX-License-Identifier: MIT
// Other libraries that extract and scale a pane from the same raw file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace sylvomex::bench {

/// A square window of a raw colour file, starting at col, raw_row.
struct PaneWindow {
  int col = 0;
  int raw_row = 0;
  int size = 0;
};

/// The raw file of the pane benchmarks, square.
struct PaneSource {
  std::filesystem::path file;
  std::span<const std::uint8_t> bytes;  // one mapping, shared by all peers that use it
  int size = 0;
};

/// Renders a pane of pane_size x pane_size blue, green, red pixels.
using PanePainter =
    std::function<void(const PaneWindow& window, int pane_size, std::span<std::uint8_t> bgr)>;

struct PanePeer {
  std::string name;
  PanePainter paint;
};

/// Only reads what a pane needs from the mapped file: copies its rows or, where pixels are skipped,
/// touches each cache line. A lower bound for every renderer.
PanePeer Pane_Bare_Reading(const PaneSource& source);

/// The peers available in this build, and the bare reading.
std::vector<PanePeer> Pane_Peers(const PaneSource& source);

}  // namespace sylvomex::bench
