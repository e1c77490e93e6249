// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "interchange/las_header.h"

namespace sylvomex {

/// What a LAS file says of its coordinates.
struct LasSystem {
  std::string wkt;           // of the map coordinates; empty when the file does not say
  double height_metres = 1;  // length of a unit of Z
};

/// From the WKT or the GeoTIFF keys among the variable length records. Refused for a system that
/// PROJ does not know; name: the file in messages.
LasSystem Las_System(const LasHeader& header, const std::string& name);

}  // namespace sylvomex
