// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

#include "interchange/site_record.h"
#include "interchange/told_share.h"

namespace sylvomex {

/// Lidar as a LAS file (version 1.4, point format 6) in world coordinates, millimetres. input: a
/// tile file, a path header (all tiles of its folder), or the point file of 21 bytes a point. The
/// kind of a tile is told by its length. Echoes of a pulse come in order of their ranges; records
/// that an import made give back times, classes, return numbers and angles. Heights of 2004 are
/// raised by 0.18 m, as the workstation does.
///
/// Returns the number of points. Refused for files that are no tiles and for another ending than
/// ".las"; FailedOnTheWay when the output cannot be written.
std::uint64_t Export_Lidar(const std::filesystem::path& input, const Site& site,
                           const std::filesystem::path& output, const ToldShare& told = {});

}  // namespace sylvomex
