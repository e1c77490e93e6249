// SPDX-License-Identifier: MIT
#include "region/task_needs.h"

#include <algorithm>
#include <cmath>

#include "closedlib/back_projection.h"

namespace sylvomex {
namespace {

constexpr double kMegabyte = 1 << 20;

constexpr double kProgramBytes = 96 * kMegabyte;  // the program, its libraries, the plan
constexpr double kPatchScratch = 160;             // bytes a pixel while a patch is correlated
constexpr double kPointBytes = 64;                // mesh, scores, sorting
constexpr double kFaultAround = 131072;           // bytes of a file that one touched row brings
constexpr double kTemplateRows = 101;
constexpr double kTileBytes = 6;  // for each byte of a tile, while it is compressed and written

constexpr double kSearchSeconds = 0.03;
constexpr double kPatchSeconds = 2.5e-8;  // a pixel
constexpr double kPointSeconds = 2e-8;    // a point and image
constexpr double kTileSeconds = 0.003;
constexpr double kCellSeconds = 9e-8;

/// Of the raw file's pages: whole rows where they are short, else what one touched row brings.
double File_Bytes(const PatchNeeds& patch) {
  const double row = patch.columns * patch.pixel_bytes;
  const double touched = std::min(row, patch.side * patch.pixel_bytes + kFaultAround);
  return (patch.side + kTemplateRows) * touched + 2 * kFaultAround;
}

}  // namespace

TaskNeeds Needs_Of_Search(const std::vector<PatchNeeds>& patches, double most_points,
                          double usual_points, std::uint64_t model_bytes) {
  const auto images = static_cast<double>(patches.size());
  double seconds = kSearchSeconds, files = 0, side = 0;
  for (const PatchNeeds& patch : patches) {
    seconds += kPatchSeconds * patch.side * patch.side;
    files += File_Bytes(patch);
    side = std::max(side, patch.side);
  }
  seconds += kPointSeconds * usual_points * images;
  const double volume = side * kVolumeImages * kVolumeSide * sizeof(double) + 4 * kMegabyte;
  const double bytes = kProgramBytes + volume + files + kPatchScratch * side * side +
                       most_points * (kPointBytes + images * sizeof(float)) +
                       static_cast<double>(model_bytes);
  return {seconds, static_cast<std::uint64_t>(bytes)};
}

TaskNeeds Needs_Of_Tile(double cells, double pixel_bytes, double image_bytes,
                        std::uint64_t model_bytes) {
  const double bytes = kProgramBytes + kTileBytes * cells * pixel_bytes + image_bytes +
                       4 * kMegabyte + static_cast<double>(model_bytes);
  return {kTileSeconds + kCellSeconds * cells, static_cast<std::uint64_t>(bytes)};
}

double Mesh_Points(const TreeTopNumbers& numbers, double side, double canopy_height) {
  const double columns = std::floor(side / numbers.Mesh) + 2;
  const double layer = numbers.fHDOM * std::max(canopy_height, 0.0) * (1 - numbers.Hlow);
  return columns * columns * (std::floor(std::max(layer, 0.0) / numbers.Mesh) + 2);
}

}  // namespace sylvomex
