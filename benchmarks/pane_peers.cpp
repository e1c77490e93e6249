// SPDX-License-Identifier: MIT
#include "pane_peers.h"

#include <algorithm>

#ifdef SYLVOMEX_BENCH_OPENCV
#include "pane_peer_opencv.h"
#endif
#ifdef SYLVOMEX_BENCH_GDAL
#include "pane_peer_gdal.h"
#endif

namespace sylvomex::bench {

PanePeer Pane_Bare_Reading(const PaneSource& source) {
  const auto paint = [source](const PaneWindow& window, int pane_size,
                              std::span<std::uint8_t> bgr) {
    constexpr std::size_t kLine = 64;
    const auto width = 3 * static_cast<std::size_t>(window.size);
    const int step = std::max(1, window.size / pane_size);
    for (int row = 0, at = 0; at < window.size; ++row, at += step) {
      const auto start =
          static_cast<std::size_t>(window.raw_row + at) * static_cast<std::size_t>(source.size) +
          static_cast<std::size_t>(window.col);
      const std::span<const std::uint8_t> pixels = source.bytes.subspan(3 * start, width);
      if (step == 1) {
        std::copy(pixels.begin(), pixels.end(),
                  bgr.begin() + static_cast<std::ptrdiff_t>(width) * row);
        continue;
      }
      std::uint8_t seen = 0;
      for (std::size_t byte = 0; byte < width; byte += kLine) seen ^= pixels[byte];
      bgr[static_cast<std::size_t>(row)] = seen;
    }
  };
  return {"bare_reading", paint};
}

std::vector<PanePeer> Pane_Peers(const PaneSource& source) {
  std::vector<PanePeer> peers;
  peers.push_back(Pane_Bare_Reading(source));
#ifdef SYLVOMEX_BENCH_OPENCV
  peers.push_back(Pane_OpenCv(source));
#endif
#ifdef SYLVOMEX_BENCH_GDAL
  peers.push_back(Pane_Gdal_Virtual(source));
  peers.push_back(Pane_Gdal_Envi(source));
#endif
  return peers;
}

}  // namespace sylvomex::bench
