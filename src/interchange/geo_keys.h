// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "interchange/las_header.h"

namespace sylvomex {

/// The system that the GeoTIFF keys of a LAS file define (OGC 19-008r4) by methods and parameters,
/// as WKT, heights left out. records: those of the file, with the keys and their numbers and texts.
/// Empty when they define none that GDAL understands.
std::string Defined_By_Geo_Keys(std::span<const LasVariableRecord> records);

}  // namespace sylvomex
