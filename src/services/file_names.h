// SPDX-License-Identifier: MIT
// The fixed names of files that one command writes and another reads, or that several read.
// A name that a single command uses stands in that command.
#pragma once

namespace sylvomex {

inline constexpr const char* kColourMapFile = "C:\\data\\JetColorMAP.csv";

// Of the pointer modes: tie points, and a polygon in full-image pixels, on the film, on the ground.
inline constexpr const char* kTiePointFile = "c:\\data\\imageobs.txt";
inline constexpr const char* kPixelPolylineFile = "c:\\data\\polyline.txt";
inline constexpr const char* kFilmPolylineFile = "c:\\data\\IMA_polyline.txt";
inline constexpr const char* kGroundPolylineFile = "c:\\data\\XY_polyline.txt";

}  // namespace sylvomex
