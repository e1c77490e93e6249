// SPDX-License-Identifier: MIT
#pragma once

#include "pane_peers.h"

namespace sylvomex::bench {

/// Region of the mapped file, nearest-neighbour resize, channel swap; one thread.
PanePeer Pane_OpenCv(const PaneSource& source);

}  // namespace sylvomex::bench
