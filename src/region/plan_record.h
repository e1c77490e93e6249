// SPDX-License-Identifier: MIT
// A plan: independent tasks over one site. Map positions are the workstation's own, metres; world =
// working + shift.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "region/input_files.h"
#include "region/region_order.h"

namespace sylvomex {

inline constexpr int kPlanVersion = 2;

enum class TaskKind { TreeTops, OrthoTile };

/// The place for which a search is answerable: a circle around the plot, or a tile that contains
/// its west and south sides, not its east and north ones.
struct OwnCell {
  std::optional<MapExtent> tile;  // none: the circle
  double X = 0, Y = 0, radius = 0;
};

struct PlotTask {
  std::string plot;
  OwnCell cell;
  Point3D centre;          // on the ground
  double radius = 0;       // box r of the search
  std::string model_tree;  // its id
  Point3D model_top;
  std::vector<int> images;  // indices of the plan's headers
};

/// A tile of the orthoimage, counted from the west and from the south.
struct TileTask {
  int column = 0, row = 0;
  int image = 0;  // index of the plan's headers
};

struct RegionTask {
  std::string id;
  TaskKind kind = TaskKind::TreeTops;
  double cost = 0;                 // seconds on one thread, roughly
  std::uint64_t memory_bytes = 0;  // more than its process will have in use
  PlotTask plot;
  TileTask tile;
};

/// What was asked for and cannot be done, or is to be known.
struct PlanNote {
  std::string id;  // of the plot, tile or image
  std::string cause;
};

struct RegionPlan {
  std::string id;  // checksum of all below but the stamps of files
  std::filesystem::path site;
  std::string crs;
  WorldShift shift;
  std::string dem, chm;              // headers on the drives
  std::vector<std::string> headers;  // of the images
  // The files that tasks read; none of an image that no task uses, of no chm without plots.
  std::vector<std::optional<InputFiles>> image_files;  // as the headers
  std::optional<InputFiles> dem_files, chm_files;
  TreeTopNumbers numbers;
  std::optional<GivenOrthoimage> orthoimage;  // its extent in working coordinates
  std::vector<RegionTask> tasks;
  std::vector<std::vector<std::string>> bundles;  // ids of tasks, of even cost
  std::vector<PlanNote> left_out;
  std::vector<PlanNote> notes;
};

/// Columns and rows of the orthoimage and of its tiles.
struct TileGrid2D {
  int columns = 0, rows = 0;            // cells
  int tile_columns = 0, tile_rows = 0;  // tiles
};
TileGrid2D Tiles_Of(const GivenOrthoimage& orthoimage);

/// The cells of one tile, and where its south-west corner lies.
struct TilePlace {
  int columns = 0, rows = 0;
  double west = 0, south = 0;
};
TilePlace Place_Of(const GivenOrthoimage& orthoimage, int column, int row);

std::string Kind_Name(TaskKind kind);

}  // namespace sylvomex
