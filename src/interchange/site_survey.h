// SPDX-License-Identifier: MIT
// What a site holds and how well its parts fit each other.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "interchange/site_record.h"
#include "lidar/tile_grid.h"

namespace sylvomex {

struct HeightRange {
  double low = 0, mean = 0, high = 0;  // metres
};

/// A photograph on the ground, at the mean height of the terrain below it; world coordinates.
struct SurveyedImage {
  std::string name;
  std::int32_t image_id = 0;
  double f_mm = 0;
  int width = 0, height = 0;             // of the full image
  double cut_width = 0, cut_height = 0;  // of the raw file
  Point3D centre;
  std::array<Point3D, 4> corners;            // of the raw file
  bool has_footprint = false;                // false where a corner looks above the horizon
  double ground_pixel = 0;                   // metres, at the footprint's middle
  std::optional<HeightRange> terrain;        // under the footprint
  std::optional<std::array<double, 2>> sun;  // azimuth, elevation, degrees
  double overlap = 0;  // the largest share of the footprint that another image shows
  int neighbours = 0;  // images that show part of the footprint
  /// The middle of the first plot in the image: full-image pixels from the outer corner, and the
  /// angle of the view from nadir, degrees; only where the image shows it.
  std::optional<std::array<double, 3>> plot;
};

struct SurveyedTile {
  double west = 0, south = 0;  // world
  std::int64_t records = 0;    // pulses
};

struct SurveyedCampaign {
  Campaign campaign = Campaign::Als2007;
  std::vector<SurveyedTile> tiles;
  std::int64_t pulses = 0;
  double pulses_a_square_metre = 0;  // over the tiles
  int missing_tiles = 0;             // within the rectangle of those that are there
  /// Lowest last echo of every 5 m square less the terrain model there.
  std::size_t compared = 0;
  double mean_difference = 0, rms_difference = 0;  // metres
  int compared_tiles = 0;
};

/// World metres.
struct MapRectangle {
  double west = 0, south = 0, east = 0, north = 0;
};

struct SurveyedModel {
  std::string name;  // "dem", "chm"
  double west = 0, south = 0, east = 0, north = 0, cell = 0;
  std::uint64_t cells = 0, without_data = 0;
  HeightRange heights;
  /// Where most cells are without data, by squares of some cells.
  std::vector<MapRectangle> gaps;
};

struct SiteSurvey {
  Site site;
  std::vector<SurveyedImage> images;
  std::vector<SurveyedCampaign> campaigns;
  std::vector<SurveyedModel> models;
  std::optional<Point3D> plot;      // middle of the first plot, world
  std::vector<std::string> faults;  // files that could not be read
};

SiteSurvey Survey_Site(const Site& site);

/// The report as text, and as a page with a map and tables.
std::string Survey_Text(const SiteSurvey& survey);
std::string Survey_Html(const SiteSurvey& survey);

}  // namespace sylvomex
