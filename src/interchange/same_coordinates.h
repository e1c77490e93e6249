// SPDX-License-Identifier: MIT
#pragma once

#include <ogr_spatialref.h>

#include "interchange/site.h"

namespace sylvomex {

/// Whether two systems give the same map coordinates: they agree by definition, or no position of
/// an extent (in the first one) moves by 0.1 mm on its way to the second, as with names and codes
/// that differ for one system.
bool Same_Coordinates(const OGRSpatialReference& from, const OGRSpatialReference& to,
                      const MapExtent& extent);

}  // namespace sylvomex
