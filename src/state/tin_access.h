// SPDX-License-Identifier: MIT
// Heights of the block's triangulated models, metres. Hints and misses: tin_lookup.h.
#pragma once

#include "heightmodels/tin_lookup.h"
#include "heightmodels/tin_tiles.h"
#include "state/workspace.h"

namespace sylvomex {

/// -99 outside the model or without one.
inline double Get_Tin_Elevation(const Workspace& w, double X, double Y, std::int32_t& hint) {
  return Tin_Elevation(w.TinDem, X, Y, hint);
}

/// 0 outside the model or without one.
inline double Get_Tin_Chm_Elevation(const Workspace& w, double X, double Y, std::int32_t& hint) {
  return Tin_Chm_Elevation(w.TinChm, X, Y, hint);
}

/// -99 outside the model or without one. tiles: the part of the tile files read so far.
inline double Get_Tin_Elevation_Tiled(const Workspace& w, double X, double Y, std::int32_t& hint,
                                      TinTiles& tiles) {
  return Tin_Elevation_Tiled(w.TinDem, X, Y, hint, tiles);
}

inline double Get_Tin_Elevation_Tiled(const Workspace& w, double X, double Y, std::int32_t& hint) {
  TinTiles tiles(w.Drives);
  return Get_Tin_Elevation_Tiled(w, X, Y, hint, tiles);
}

}  // namespace sylvomex
