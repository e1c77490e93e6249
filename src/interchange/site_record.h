// SPDX-License-Identifier: MIT
// What "site.toml" holds: the coordinate system of a site, the shift between world and working
// coordinates, and what was imported.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/drive_map.h"
#include "platform/point3d.h"

namespace sylvomex {

/// working = world - shift, metres. Whole kilometres; heights are not shifted.
struct WorldShift {
  double X = 0, Y = 0;

  bool operator==(const WorldShift&) const = default;
};

struct SourceFile {
  std::string path;      // as it was given
  std::string checksum;  // SHA-256
  std::uint64_t bytes = 0;
};

/// One import as it is kept.
struct ImportEntry {
  std::string kind;  // "images", "dem", "chm", "tin", "lidar", "trees"
  std::string time;  // UTC, ISO 8601
  std::vector<SourceFile> files;
  std::map<std::string, std::string> settings;
};

/// The convention that the orientation check took for a table.
struct ChosenConvention {
  std::string table;    // checksum of the table
  std::string cameras;  // checksum of its camera file, or empty
  std::string name;
};

struct Site {
  std::filesystem::path folder;
  std::string crs;                  // anything that PROJ reads
  std::optional<WorldShift> shift;  // chosen by the first import
  std::vector<ImportEntry> imports;
  std::vector<ChosenConvention> conventions;

  [[nodiscard]] DriveMap Drives() const { return DriveMap(folder); }

  /// Coordinates in the workstation and in the world; the same where no shift is chosen yet.
  [[nodiscard]] Point3D Working(const Point3D& world) const {
    const WorldShift by = shift.value_or(WorldShift{});
    return {world.X - by.X, world.Y - by.Y, world.Z};
  }
  [[nodiscard]] Point3D World(const Point3D& working) const {
    const WorldShift by = shift.value_or(WorldShift{});
    return {working.X + by.X, working.Y + by.Y, working.Z};
  }
};

}  // namespace sylvomex
