// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "interchange/site_record.h"
#include "interchange/told_share.h"

namespace sylvomex {

/// A triangulated model as ".ply" (binary, little-endian, doubles) or as ".gpkg" with one polygon
/// with heights a triangle, in world coordinates. nodes: the node file, its triangle file lies
/// beside it with the ending ".tri".
///
/// Refused for files that are damaged and for another ending; FailedOnTheWay when the output cannot
/// be written.
void Export_Tin(const std::filesystem::path& nodes, const Site& site,
                const std::filesystem::path& output, const ToldShare& told = {});

}  // namespace sylvomex
