// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "interchange/las_header.h"

namespace sylvomex {

/// What a LAS file says of its coordinates.
struct LasSystem {
  std::string wkt;                   // of the map coordinates; empty when the file does not say
  double height_metres = 1;          // length of a unit of Z
  bool height_unit_is_open = false;  // the map counts in feet, and nothing tells the unit of Z
  bool is_told_twice = false;        // by WKT and by GeoTIFF keys, and they differ
};

/// From the WKT or the GeoTIFF keys among the variable length records; of both the WKT counts,
/// unless version 1.4 says otherwise. Keys that state another unit of length than their code's
/// system change its unit. Refused for a system that PROJ does not know; name: the file in
/// messages.
LasSystem Las_System(const LasHeader& header, const std::string& name);

}  // namespace sylvomex
