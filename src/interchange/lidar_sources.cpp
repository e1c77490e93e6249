// SPDX-License-Identifier: MIT
#include "interchange/lidar_sources.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/las_system.h"
#include "interchange/laz_decoder.h"
#include "interchange/same_coordinates.h"

namespace sylvomex {
namespace {

constexpr double kReprojectedUnit = 1e-4;  // metres
constexpr int kEdgePoints = 21;            // along an edge of a reprojected extent

EchoSource Open_Source(const std::filesystem::path& file, std::size_t number,
                       const std::function<std::filesystem::path(const std::string&)>& new_file) {
  EchoSource source{file.string(), file, Read_Las_Header(file, file.string()), "", {}, true};
  if (source.header.compressed) {
    source.path = new_file("laz_" + std::to_string(number));
    Decode_Laz(file, source.path, source.name);
    std::vector<LasVariableRecord> records = std::move(source.header.records);
    const bool keys_count = source.header.keys_count;
    source.header = Read_Las_Header(source.path, source.name);
    source.header.records = std::move(records);  // the decoded file has no extended ones
    source.header.keys_count = keys_count;
  }
  if (source.header.count == 0) throw Refused(source.name + ": the file holds no points");
  return source;
}

MapExtent Stated_Extent(const EchoSource& source, const SourceSurvey& survey) {
  const auto coordinate = [&](std::size_t axis, std::int32_t number) {
    return source.header.scale[axis] * number + source.header.offset[axis];
  };
  const double X0 = coordinate(0, survey.least[0]), X1 = coordinate(0, survey.greatest[0]);
  const double Y0 = coordinate(1, survey.least[1]), Y1 = coordinate(1, survey.greatest[1]);
  return {std::min(X0, X1), std::min(Y0, Y1), std::max(X0, X1), std::max(Y0, Y1)};
}

MapExtent Reprojected(const MapExtent& from, const EchoSource& source, const std::string& site) {
  const auto first = Coordinate_System(source.system);
  const auto second = Coordinate_System(site);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&first, &second));
  MapExtent to;
  if (transform == nullptr ||
      transform->TransformBounds(from.west, from.south, from.east, from.north, &to.west, &to.south,
                                 &to.east, &to.north, kEdgePoints) == 0) {
    throw Refused(source.name + ": its coordinates cannot be reprojected to the site's system");
  }
  Refuse_Far_Away(second, (to.west + to.east) / 2, (to.south + to.north) / 2, source.name);
  return to;
}

/// Finds the frame of a source's echoes and their extent in the site's system.
MapExtent Place_Source(EchoSource& source, const SourceSurvey& survey, const LasSystem& system,
                       const std::string& site) {
  MapExtent extent = Stated_Extent(source, survey);
  source.frame = {source.header.scale, source.header.offset};
  source.frame.scale[2] *= system.height_metres;
  source.frame.offset[2] *= system.height_metres;
  if (system.wkt.empty() ||
      Same_Coordinates(Coordinate_System(system.wkt), Coordinate_System(site), extent)) {
    return extent;
  }
  source.system = system.wkt;
  extent = Reprojected(extent, source, site);
  source.frame.scale[0] = source.frame.scale[1] = kReprojectedUnit;
  source.frame.offset[0] = std::floor(extent.west);
  source.frame.offset[1] = std::floor(extent.south);
  return extent;
}

void Add_Notes(const EchoSource& source, const LasSystem& system, std::vector<std::string>& notes) {
  if (system.wkt.empty()) {
    notes.push_back(source.name + ": it names no coordinate system; the site's is assumed");
  }
  if (system.is_told_twice) {
    notes.push_back(source.name +
                    ": its WKT and its GeoTIFF keys name different coordinate systems; the one "
                    "that its version prefers is taken");
  }
  if (!source.system.empty()) {
    notes.push_back(source.name + ": its coordinates are reprojected to the site's system");
  }
  if (system.height_metres != 1) {
    notes.push_back(source.name + ": its heights in feet are brought to metres");
  }
  if (system.height_unit_is_open) notes.push_back(source.name + kHeightsInMetres);
  if (!source.timed) {
    notes.push_back(source.name +
                    ": its times do not tell pulses apart; echoes that follow each other with "
                    "rising return numbers are joined");
  }
}

MapExtent Both(const MapExtent& a, const MapExtent& b) {
  return {std::min(a.west, b.west), std::min(a.south, b.south), std::max(a.east, b.east),
          std::max(a.north, b.north)};
}

}  // namespace

LidarSources Open_Lidar(const std::vector<std::filesystem::path>& files,
                        const std::string& site_crs,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told) {
  LidarSources lidar;
  std::vector<LasSystem> systems;
  for (const std::filesystem::path& file : files) {
    lidar.sources.push_back(Open_Source(file, lidar.sources.size(), new_file));
    systems.push_back(Las_System(lidar.sources.back().header, file.string()));
  }
  lidar.survey = Survey_Echoes(lidar.sources, told);
  const std::vector<std::uint64_t> crowded = Crowded_Times(lidar.survey);
  for (std::size_t i = 0; i < files.size(); ++i) {
    EchoSource& source = lidar.sources[i];
    const SourceSurvey& survey = lidar.survey.sources[i];
    if (!survey.all_times_finite) throw Refused(source.name + ": a GPS time is no number");
    source.timed = Times_Tell_Pulses(source, survey, crowded);
    const MapExtent extent = Place_Source(source, survey, systems[i], site_crs);
    lidar.extent = i == 0 ? extent : Both(lidar.extent, extent);
    Add_Notes(source, systems[i], lidar.notes);
  }
  return lidar;
}

}  // namespace sylvomex
