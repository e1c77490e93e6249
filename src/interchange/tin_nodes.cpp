// SPDX-License-Identifier: MIT
#include "interchange/tin_nodes.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "interchange/echo_reading.h"
#include "interchange/failures.h"
#include "interchange/las_header.h"
#include "interchange/lidar_sources.h"
#include "interchange/raster_mosaic.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr std::uint8_t kGround = 2;  // class of LAS
constexpr double kRasters = 0.5;  // share of the reading that is theirs where there is lidar, too

void Add_Cells(const std::vector<std::filesystem::path>& files, const std::string& site,
               std::size_t most, const ToldShare& told, TinNodes& nodes) {
  RasterMosaic mosaic(files, site);
  nodes.notes.insert(nodes.notes.end(), mosaic.Notes().begin(), mosaic.Notes().end());
  const CellGrid& grid = mosaic.Grid();
  const double cells = static_cast<double>(grid.columns) * static_cast<double>(grid.rows);
  const auto step = static_cast<std::int64_t>(
      std::max(1.0, std::ceil(std::sqrt(cells / static_cast<double>(most)))));
  if (step > 1) {
    nodes.notes.push_back(files.front().string() + ": one of " + std::to_string(step) + " x " +
                          std::to_string(step) + " cells is a node");
  }
  std::vector<double> heights(static_cast<std::size_t>(grid.columns));
  for (std::int64_t row = 0; row < grid.rows; row += step) {
    mosaic.Read_Row(row, heights);
    Tell_Share(told, static_cast<double>(row + 1), static_cast<double>(grid.rows));
    for (std::int64_t col = 0; col < grid.columns; col += step) {
      const double Z = heights[static_cast<std::size_t>(col)];
      if (Z == kNoHeight) continue;
      nodes.nodes.push_back({grid.west + grid.cell * (static_cast<double>(col) + 0.5),
                             grid.north - grid.cell * (static_cast<double>(row) + 0.5), Z});
    }
  }
}

/// Lets one point of each square through.
class Thinning {
 public:
  Thinning(const MapExtent& extent, std::size_t most)
      : extent_(extent),
        side_(std::sqrt((extent.east - extent.west) * (extent.north - extent.south) /
                        static_cast<double>(most))),
        columns_(static_cast<std::size_t>((extent.east - extent.west) / side_) + 1),
        taken_(columns_ * (static_cast<std::size_t>((extent.north - extent.south) / side_) + 1)) {}

  [[nodiscard]] double Side() const { return side_; }

  bool Take(double X, double Y) {
    const auto col = static_cast<std::size_t>(std::max(0.0, (X - extent_.west) / side_));
    const auto row = static_cast<std::size_t>(std::max(0.0, (Y - extent_.south) / side_));
    const std::size_t square = std::min(row * columns_ + col, taken_.size() - 1);
    const bool is_free = !taken_[square];
    taken_[square] = true;
    return is_free;
  }

 private:
  MapExtent extent_;
  double side_;
  std::size_t columns_;
  std::vector<bool> taken_;
};

std::optional<Thinning> Thinning_For(const LidarSources& lidar, std::size_t most, TinNodes& nodes) {
  std::uint64_t ground = 0;
  for (const SourceSurvey& survey : lidar.survey.sources) ground += survey.ground;
  if (ground == 0) {
    throw Refused(lidar.sources.front().name + ": there are no ground echoes (class 2)");
  }
  if (ground <= most) return std::nullopt;
  Thinning thinning(lidar.extent, most);
  nodes.notes.push_back("of " + std::to_string(ground) + " ground echoes one in each square of " +
                        Format(thinning.Side(), "0.00") + " m is a node");
  return thinning;
}

void Add_Ground(const LidarSources& lidar, const std::string& site, std::size_t most,
                TinNodes& nodes) {
  std::optional<Thinning> thinning = Thinning_For(lidar, most, nodes);
  LasBlockReader reader(lidar.sources);
  LasBlock block;
  std::vector<EchoRecord> echoes;
  while (reader.Next(block)) {
    const EchoSource& source = lidar.sources[block.source];
    echoes.clear();
    Read_Echoes(block, source, site, echoes);
    for (const EchoRecord& echo : echoes) {
      if (echo.classification != kGround) continue;
      const Point3D at{source.frame.Coordinate(0, echo.position[0]),
                       source.frame.Coordinate(1, echo.position[1]),
                       source.frame.Coordinate(2, echo.position[2])};
      if (!thinning || thinning->Take(at.X, at.Y)) nodes.nodes.push_back(at);
    }
  }
}

}  // namespace

TinNodes Read_Tin_Nodes_From(
    const std::vector<std::filesystem::path>& files, const std::string& site_crs, std::size_t most,
    const std::function<std::filesystem::path(const std::string&)>& new_file,
    const ToldShare& told) {
  std::vector<std::filesystem::path> rasters, lidar;
  for (const auto& file : files) (Is_Las_File(file) ? lidar : rasters).push_back(file);
  TinNodes nodes;
  if (!rasters.empty())
    Add_Cells(rasters, site_crs, most, Part_Of(told, 0, lidar.empty() ? 1 : kRasters), nodes);
  if (!lidar.empty()) {
    const LidarSources sources =
        Open_Lidar(lidar, site_crs, new_file, Part_Of(told, rasters.empty() ? 0 : kRasters, 1));
    nodes.notes.insert(nodes.notes.end(), sources.notes.begin(), sources.notes.end());
    Add_Ground(sources, site_crs, most, nodes);
  }
  if (nodes.nodes.size() < 3) {
    throw Refused(files.front().string() + ": less than three heights make no triangles");
  }
  return nodes;
}

}  // namespace sylvomex
