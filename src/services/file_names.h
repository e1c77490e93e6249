// SPDX-License-Identifier: MIT
// The fixed names of files that several commands share, as writer or reader. A name used by a
// single command stands in that command.
#pragma once

namespace sylvomex {

inline constexpr const char* kColourMapFile = "C:\\data\\JetColorMAP.csv";

// Files of the pointer modes: tie points, and a polygon in full-image pixels, film coordinates and
// ground coordinates.
inline constexpr const char* kTiePointFile = "c:\\data\\imageobs.txt";
inline constexpr const char* kPixelPolylineFile = "c:\\data\\polyline.txt";
inline constexpr const char* kFilmPolylineFile = "c:\\data\\IMA_polyline.txt";
inline constexpr const char* kGroundPolylineFile = "c:\\data\\XY_polyline.txt";

}  // namespace sylvomex
