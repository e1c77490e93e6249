// SPDX-License-Identifier: MIT
// What is to be done over a region, as its TOML file says it. Map positions are world coordinates,
// metres.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "interchange/site.h"
#include "matching/tree_top_chain.h"

namespace sylvomex {

struct GivenPlot {
  std::string id;
  double X = 0, Y = 0;  // centre
  double radius = 0;    // metres
  std::string where;    // "plots.csv, line 3"
};

/// An area that is searched as a whole, in square tiles.
struct GivenArea {
  MapExtent extent;
  double tile = 0;  // side, metres
};

struct GivenOrthoimage {
  MapExtent extent;
  double cell = 0;             // side, metres
  int tile = 512;              // side, cells
  double elsewhere = 170;      // height that takes the place of ground below the lowest, metres
  double lowest_ground = 100;  // metres
};

struct RegionOrder {
  std::filesystem::path site;        // folder of the drives
  std::string crs;                   // of a folder without "site.toml"
  std::vector<std::string> headers;  // names or patterns on the drives
  std::string cameras;               // or a camera table
  std::string dem, chm;              // headers of the height models; chm for plots
  int least_images = 3, most_images = 9;
  TreeTopNumbers numbers;
  std::vector<GivenPlot> plots;
  std::optional<GivenArea> area;
  std::filesystem::path model_trees;
  double reach = 500;  // metres from a plot to its model tree
  std::optional<GivenOrthoimage> orthoimage;
};

}  // namespace sylvomex
