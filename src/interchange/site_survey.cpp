// SPDX-License-Identifier: MIT
#include "interchange/site_survey.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "heightmodels/raster_model.h"
#include "imageblock/image_header.h"
#include "interchange/csv_table.h"
#include "lidar/counted_file.h"
#include "lidar/path_header.h"
#include "lidar/pulse_table.h"
#include "lidar/tile_2004.h"
#include "overlays/plot_text.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"
#include "solver/camera_model.h"

namespace sylvomex {
namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr int kMostComparedTiles = 100;
constexpr double kSquare = 5;         // metres, of the comparison with the terrain
constexpr double kRaised2004 = 0.18;  // metres, added by the reader of that campaign

/// Does what may meet an unreadable file, and notes the fault instead.
template <class Action>
void Try(SiteSurvey& survey, Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    survey.faults.emplace_back(error.what());
  }
}

/// Mean and extremes of heights that are added one by one.
class Heights {
 public:
  void Add(double height) {
    low_ = std::min(low_, height);
    high_ = std::max(high_, height);
    sum_ += height;
    ++count_;
  }
  [[nodiscard]] std::optional<HeightRange> Range() const {
    if (count_ == 0) return std::nullopt;
    return HeightRange{low_, sum_ / static_cast<double>(count_), high_};
  }

 private:
  double low_ = 1e30, high_ = -1e30, sum_ = 0;
  std::uint64_t count_ = 0;
};

/// Height of a model at a working position; std::nullopt outside it and without data.
std::optional<double> Height_At(const RasterModel& model, double X, double Y) {
  const std::uint64_t col = Raster_Column(model, X);
  const std::uint64_t row = Raster_Row(model, Y);
  if (col >= static_cast<std::uint64_t>(model.columns) ||
      row >= static_cast<std::uint64_t>(model.rows)) {
    return std::nullopt;
  }
  const double height = Raster_Cell(model, col, row);
  return Is_No_Data(height) ? std::nullopt : std::optional(height);
}

/// Squares of cells, at most some sixty along a side, in which most cells are without data.
std::vector<MapRectangle> Gaps_Of(const RasterModel& model, const SurveyedModel& surveyed) {
  constexpr int kMostSquares = 60;
  const int side = (std::max<int>(model.columns, model.rows) + kMostSquares - 1) / kMostSquares;
  const auto columns = static_cast<std::size_t>(model.columns);
  std::vector<MapRectangle> gaps;
  for (int row = 0; row < model.rows; row += side) {
    for (int col = 0; col < model.columns; col += side) {
      const int east = std::min<int>(col + side, model.columns);
      const int north = std::min<int>(row + side, model.rows);
      std::int64_t empty = 0;
      for (int r = row; r < north; ++r) {
        const std::size_t first = static_cast<std::size_t>(r) * columns;
        for (int c = col; c < east; ++c) {
          if (Is_No_Data(model.Cells[first + static_cast<std::size_t>(c)])) ++empty;
        }
      }
      if (2 * empty <= static_cast<std::int64_t>(east - col) * (north - row)) continue;
      gaps.push_back({surveyed.west + col * surveyed.cell, surveyed.south + row * surveyed.cell,
                      surveyed.west + east * surveyed.cell,
                      surveyed.south + north * surveyed.cell});
    }
  }
  return gaps;
}

void Survey_Model(SiteSurvey& survey, const std::string& name, RasterModel& model) {
  const DriveMap drives = survey.site.Drives();
  const FilePath header = drives.Locate("c:\\data\\models\\" + name + ".hdr");
  if (!File_Exists(header)) return;
  Read_Raster_Header(header, model);
  Dimension_Cells(model);
  SurveyedModel surveyed;
  surveyed.name = name;
  surveyed.cell = model.CellSize;
  Read_Cells(drives.Locate(model.CellFile.Trimmed()), model);
  Heights heights;
  surveyed.cells =
      static_cast<std::uint64_t>(model.columns) * static_cast<std::uint64_t>(model.rows);
  for (std::uint64_t i = 0; i < surveyed.cells; ++i) {
    if (Is_No_Data(model.Cells[i])) {
      ++surveyed.without_data;
    } else {
      heights.Add(model.Cells[i]);
    }
  }
  surveyed.heights = heights.Range().value_or(HeightRange{});
  // Columns are told by their middles, rows by their northern borders.
  const Point3D first =
      survey.site.World({model.OriginX - model.CellSize / 2, model.OriginY - model.CellSize, 0});
  surveyed.west = first.X;
  surveyed.south = first.Y;
  surveyed.east = first.X + model.CellSize * model.columns;
  surveyed.north = first.Y + model.CellSize * model.rows;
  if (surveyed.without_data > 0) surveyed.gaps = Gaps_Of(model, surveyed);
  survey.models.push_back(surveyed);
}

/// An image's header in working coordinates with its camera.
struct HeldImage {
  ImageRecord header;
  Camera camera;
};

/// Full-image pixel of the header's counting from raw-file corners.
PixelPosition Corner_Of(const ImageRecord& image, bool right, bool bottom) {
  const double col = image.SubColOrigin + (right ? image.SubWidth : 0) - 0.5;
  const double row = image.SubRowOrigin + (bottom ? image.SubHeight : 0) - 0.5;
  return {col, image.FullHeight - 1 - row};
}

std::optional<Point3D> Ground_Of(const HeldImage& image, const PixelPosition& pixel, double Z) {
  const FilmPosition film = Pixel_To_Image(image.camera, pixel);
  const auto ground = Image_To_Object_At_Z(image.camera, Z, film);
  if (!ground || !(To_Camera_Axes(image.camera, *ground).q < 0)) return std::nullopt;
  return ground;
}

bool Shows(const HeldImage& image, const Point3D& point) {
  if (!(To_Camera_Axes(image.camera, point).q < 0)) return false;
  const PixelPosition at = Object_To_Pixel(image.camera, point);
  const double col = at.col + 0.5 - image.header.SubColOrigin;
  const double row = image.header.FullHeight - 0.5 - at.row - image.header.SubRowOrigin;
  return col >= 0 && col < image.header.SubWidth && row >= 0 && row < image.header.SubHeight;
}

/// A grid of ground points under the raw file.
std::vector<Point3D> Ground_Grid(const std::array<Point3D, 4>& c) {
  constexpr int kSteps = 16;
  std::vector<Point3D> grid;
  for (int i = 0; i < kSteps; ++i) {
    for (int j = 0; j < kSteps; ++j) {
      const double s = (i + 0.5) / kSteps;
      const double t = (j + 0.5) / kSteps;
      const auto mix = [&](double a, double b, double d, double e) {
        return (1 - t) * ((1 - s) * a + s * b) + t * ((1 - s) * e + s * d);
      };
      grid.push_back(
          {mix(c[0].X, c[1].X, c[2].X, c[3].X), mix(c[0].Y, c[1].Y, c[2].Y, c[3].Y), c[0].Z});
    }
  }
  return grid;
}

/// The footprint at the mean height of the terrain below it, found in a few rounds.
void Set_Footprint(SurveyedImage& surveyed, const HeldImage& image, const RasterModel& terrain,
                   double Z) {
  constexpr int kRounds = 4;
  std::array<Point3D, 4> corners;
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < 4; ++i) {
      const auto corner = Ground_Of(image, Corner_Of(image.header, i == 1 || i == 2, i >= 2), Z);
      if (!corner) return;
      corners[i] = *corner;
    }
    Heights heights;
    for (const Point3D& point : Ground_Grid(corners)) {
      if (const auto height = Height_At(terrain, point.X, point.Y)) heights.Add(*height);
    }
    surveyed.terrain = heights.Range();
    if (surveyed.terrain) Z = surveyed.terrain->mean;
  }
  surveyed.has_footprint = true;
  surveyed.corners = corners;
  const PixelPosition middle = Object_To_Pixel(
      image.camera, {(corners[0].X + corners[2].X) / 2, (corners[0].Y + corners[2].Y) / 2, Z});
  const auto here = Ground_Of(image, middle, Z);
  const auto next = Ground_Of(image, {middle.col + 1, middle.row}, Z);
  if (here && next) surveyed.ground_pixel = std::hypot(next->X - here->X, next->Y - here->Y);
}

void Set_Overlaps(SiteSurvey& survey, const std::vector<HeldImage>& images) {
  for (std::size_t i = 0; i < images.size(); ++i) {
    SurveyedImage& surveyed = survey.images[i];
    if (!surveyed.has_footprint) continue;
    const std::vector<Point3D> grid = Ground_Grid(surveyed.corners);
    for (std::size_t j = 0; j < images.size(); ++j) {
      if (i == j) continue;
      const auto shown = std::count_if(
          grid.begin(), grid.end(), [&](const Point3D& point) { return Shows(images[j], point); });
      if (shown > 0) ++surveyed.neighbours;
      surveyed.overlap =
          std::max(surveyed.overlap, static_cast<double>(shown) / static_cast<double>(grid.size()));
    }
  }
}

void Set_Plot(SurveyedImage& surveyed, const HeldImage& image, const Point3D& plot) {
  if (!Shows(image, plot)) return;
  const PixelPosition at = Object_To_Pixel(image.camera, plot);
  const double across = std::hypot(plot.X - image.camera.centre.X, plot.Y - image.camera.centre.Y);
  surveyed.plot = std::array{at.col + 0.5, image.header.FullHeight - 0.5 - at.row,
                             std::atan2(across, image.camera.centre.Z - plot.Z) / kDegree};
}

SurveyedImage Surveyed(const HeldImage& image, const std::string& name, const RasterModel& terrain,
                       double Z) {
  SurveyedImage surveyed;
  const ImageRecord& header = image.header;
  surveyed.name = name;
  surveyed.image_id = header.ImageId;
  surveyed.f_mm = header.PrincipalDistance * 1000;
  surveyed.width = header.FullWidth;
  surveyed.height = header.FullHeight;
  surveyed.cut_width = header.SubWidth;
  surveyed.cut_height = header.SubHeight;
  surveyed.centre = {header.X0, header.Y0, header.Z0};
  if (header.SunAzimuth != 0 || header.SunElevation != 0) {
    surveyed.sun = std::array{header.SunAzimuth / kDegree, header.SunElevation / kDegree};
  }
  Set_Footprint(surveyed, image, terrain, Z);
  return surveyed;
}

/// Brings what was computed in working coordinates into the world.
void To_World(SiteSurvey& survey) {
  for (SurveyedImage& image : survey.images) {
    image.centre = survey.site.World(image.centre);
    for (Point3D& corner : image.corners) corner = survey.site.World(corner);
  }
  if (survey.plot) survey.plot = survey.site.World(*survey.plot);
}

void Survey_Images(SiteSurvey& survey, const RasterModel& terrain) {
  std::vector<HeldImage> images;
  double Z = 0;
  for (const SurveyedModel& model : survey.models) {
    if (model.name == "dem") Z = model.heights.mean;
  }
  for (const FilePath& file : survey.site.Drives().Match("c:\\data\\images\\*.hdr")) {
    Try(survey, [&] {
      ListReader reader(file);
      HeldImage image{Read_Image_Header(reader), {}};
      image.camera = Make_Camera(image.header);
      survey.images.push_back(Surveyed(image, file.native.stem().string(), terrain, Z));
      images.push_back(std::move(image));
    });
  }
  Set_Overlaps(survey, images);
  for (std::size_t i = 0; i < images.size() && survey.plot; ++i) {
    Set_Plot(survey.images[i], images[i], *survey.plot);
  }
}

/// The middle of the trees of the first field list that was imported.
void Survey_Plot(SiteSurvey& survey) {
  const auto trees = std::find_if(survey.site.imports.begin(), survey.site.imports.end(),
                                  [](const ImportEntry& entry) { return entry.kind == "trees"; });
  if (trees == survey.site.imports.end() || trees->files.empty()) return;
  const std::string stem = std::filesystem::path(trees->files.front().path).stem().string();
  const FilePath file = survey.site.Drives().Locate("c:\\data\\vektorit\\" + stem + "_plot.txt");
  if (!File_Exists(file)) return;
  PlotTextReader reader((ListReader(file)));
  Point3D sum;
  int count = 0;
  while (const auto tree = reader.Next_Tree()) {
    const TreePlace place = Place_Tree(reader.Header(), *tree);
    sum = {sum.X + place.MapX, sum.Y + place.MapY, sum.Z + place.BaseZ};
    ++count;
  }
  if (count > 0) survey.plot = Point3D{sum.X / count, sum.Y / count, sum.Z / count};
}

/// The lowest last echo of each square.
class LowestEchoes {
 public:
  void Add(double X, double Y, double Z) {
    const auto key = std::pair(std::floor(X / kSquare), std::floor(Y / kSquare));
    const auto [found, is_new] = lowest_.try_emplace(key, Point3D{X, Y, Z});
    if (!is_new && Z < found->second.Z) found->second = {X, Y, Z};
  }
  [[nodiscard]] const auto& All() const { return lowest_; }

 private:
  std::map<std::pair<double, double>, Point3D> lowest_;
};

void Add_Last_Echoes(const FilePath& file, Campaign campaign, LowestEchoes& lowest) {
  if (campaign == Campaign::Als2004) {
    for (const Lidar2004Record& record : Read_Tile_2004(file)) {
      lowest.Add(record.LastX, record.LastY, record.LastZ + kRaised2004);
    }
    return;
  }
  PulseTable table;
  Read_Pulse_Tile(file, table);
  for (std::int32_t i = 1; i <= table.Count(); ++i) {
    const LidarPulse pulse = table(i);
    const int echoes = std::clamp<int>(pulse.EchoCount, 1, kEchoSlots);
    const int slot = campaign == Campaign::Als2007 ? kEchoSlots + 1 - echoes : echoes;
    const LidarEcho& last = pulse.Slot(slot);
    if (last.X != 0) lowest.Add(last.X, last.Y, last.Z);
  }
}

void Compare_With_Terrain(SurveyedCampaign& surveyed, const std::vector<FilePath>& files,
                          const RasterModel& terrain) {
  if (terrain.columns == 0) return;
  const std::size_t step = (files.size() + kMostComparedTiles - 1) / kMostComparedTiles;
  double sum = 0;
  double squares = 0;
  for (std::size_t i = 0; i < files.size(); i += step) {
    LowestEchoes lowest;
    Add_Last_Echoes(files[i], surveyed.campaign, lowest);
    ++surveyed.compared_tiles;
    for (const auto& [key, echo] : lowest.All()) {
      const auto height = Height_At(terrain, echo.X, echo.Y);
      if (!height) continue;
      sum += echo.Z - *height;
      squares += (echo.Z - *height) * (echo.Z - *height);
      ++surveyed.compared;
    }
  }
  if (surveyed.compared == 0) return;
  surveyed.mean_difference = sum / static_cast<double>(surveyed.compared);
  surveyed.rms_difference = std::sqrt(squares / static_cast<double>(surveyed.compared));
}

/// Column and row of a tile from the name "064_070.bin".
std::optional<std::pair<int, int>> Tile_Of_Name(const std::string& name) {
  const auto digits = [&](std::size_t from) -> std::optional<int> {
    const auto number = Finite_Number(name.substr(from, 3));
    if (!number) return std::nullopt;
    return static_cast<int>(*number);
  };
  if (name.size() != 11 || name[3] != '_') return std::nullopt;
  const auto col = digits(0);
  const auto row = digits(4);
  if (!col || !row) return std::nullopt;
  return std::pair(*col, *row);
}

void Survey_Campaign(SiteSurvey& survey, Campaign campaign, const RasterModel& terrain) {
  const DriveMap drives = survey.site.Drives();
  const FilePath header =
      drives.Locate("c:\\data\\als" + std::to_string(static_cast<int>(campaign)) + "_path.hdr");
  if (!File_Exists(header)) return;
  const std::int64_t record = campaign == Campaign::Als2004 ? kRecord2004Bytes : kPulseBytes;
  const TileIndex origin = Tile_Index(campaign, 0, 0);
  SurveyedCampaign surveyed;
  surveyed.campaign = campaign;
  std::vector<FilePath> files;
  int first_col = 1000, last_col = -1, first_row = 1000, last_row = -1;
  for (const FilePath& file : drives.Match(Read_Path_Header(header) + "???_???.bin")) {
    const auto tile = Tile_Of_Name(file.native.filename().string());
    if (!tile) continue;
    const std::int64_t count = CountedFile(file, record).Count();
    const Point3D corner = survey.site.World(
        {(tile->first - origin.col) * kTileSide, (tile->second - origin.row) * kTileSide, 0});
    surveyed.tiles.push_back({corner.X, corner.Y, count});
    surveyed.pulses += count;
    files.push_back(file);
    first_col = std::min(first_col, tile->first);
    last_col = std::max(last_col, tile->first);
    first_row = std::min(first_row, tile->second);
    last_row = std::max(last_row, tile->second);
  }
  if (files.empty()) return;
  const auto tiles = static_cast<int>(files.size());
  surveyed.missing_tiles = (last_col - first_col + 1) * (last_row - first_row + 1) - tiles;
  surveyed.pulses_a_square_metre =
      static_cast<double>(surveyed.pulses) / (tiles * kTileSide * kTileSide);
  Compare_With_Terrain(surveyed, files, terrain);
  survey.campaigns.push_back(std::move(surveyed));
}

}  // namespace

SiteSurvey Survey_Site(const Site& site) {
  SiteSurvey survey;
  survey.site = site;
  RasterModel terrain;
  Try(survey, [&] { Survey_Model(survey, "dem", terrain); });
  Try(survey, [&] {
    RasterModel canopy;
    Survey_Model(survey, "chm", canopy);
  });
  Try(survey, [&] { Survey_Plot(survey); });
  Survey_Images(survey, terrain);
  for (const Campaign campaign : {Campaign::Als2004, Campaign::Als2006, Campaign::Als2007}) {
    Try(survey, [&] { Survey_Campaign(survey, campaign, terrain); });
  }
  To_World(survey);
  return survey;
}

}  // namespace sylvomex
