// SPDX-License-Identifier: MIT
#include "interchange/same_coordinates.h"

#include <cmath>
#include <memory>

#include "interchange/coordinate_system.h"

namespace sylvomex {
namespace {

constexpr double kSamePlace = 1e-4;  // metres

}  // namespace

bool Same_Coordinates(const OGRSpatialReference& from, const OGRSpatialReference& to,
                      const MapExtent& extent) {
  if (Same_Horizontal(from, to)) return true;
  if (from.IsProjected() == 0 || std::abs(from.GetTargetLinearUnits("PROJCS") - 1) > 1e-9) {
    return false;
  }
  OGRSpatialReference east_first(from);
  east_first.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&east_first, &to));
  if (transform == nullptr) return false;
  for (int i = 0; i < 9; ++i) {
    const double X = extent.west + (extent.east - extent.west) / 2 * (i % 3);
    const double Y = extent.south + (extent.north - extent.south) / 2 * std::floor(i / 3.0);
    double moved_X = X;
    double moved_Y = Y;
    if (transform->Transform(1, &moved_X, &moved_Y) == 0 ||
        !(std::abs(moved_X - X) < kSamePlace && std::abs(moved_Y - Y) < kSamePlace)) {
      return false;
    }
  }
  return true;
}

}  // namespace sylvomex
