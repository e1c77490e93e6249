// SPDX-License-Identifier: MIT
#include "pane_peers.h"

#ifdef SYLVOMEX_BENCH_OPENCV
#include "pane_peer_opencv.h"
#endif
#ifdef SYLVOMEX_BENCH_GDAL
#include "pane_peer_gdal.h"
#endif

namespace sylvomex::bench {

std::vector<PanePeer> Pane_Peers([[maybe_unused]] const PaneSource& source) {
  std::vector<PanePeer> peers;
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
