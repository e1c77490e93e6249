// SPDX-License-Identifier: MIT
#include "commands/lidar/echo_rasters.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "lidar/cell_heights.h"
#include "lidar/tile_2004.h"
#include "lidar/tile_grid.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/written_pieces.h"
#include "services/progress.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kFolder = "D:\\data\\laser\\";
constexpr const char* kChm = "D:\\data\\laser\\CHM.bin";
constexpr const char* kDem = "D:\\data\\laser\\DEM.bin";
constexpr CellHeights kNoHeights{160, 160};  // for a cell without echoes, metres
constexpr double kMostCells = 32767;         // per side, as in every raster model
constexpr std::int64_t kStride = 25;  // bytes between record starts, although a record has 100
constexpr std::size_t kMostEchoes = 50'000'000;  // in memory at a time

std::optional<double> Ask_Number(Workspace& w, const char* prompt) {
  const auto answer = w.screen->Input_Box(prompt);
  return answer ? std::optional(Parse_Double(*answer)) : std::nullopt;
}

struct Grid {
  double X0 = 0, Y0 = 0;      // upper left corner, metres
  double cell_size = 0;       // metres
  int columns = 0, rows = 0;  // from the west, from the north
};

int Whole_Cells(const char* what, double length, double cell_size) {
  if (cell_size == 0) throw RunTimeError(Failure::DivisionByZero, "gridcell size 0");
  const double cells = std::floor(length / cell_size);
  if (cells >= 0 && cells <= kMostCells) return static_cast<int>(cells);
  throw RunTimeError(Failure::Overflow,
                     std::string(what) + ": " + Plain_Text(cells) + " cells are not 0 to 32767");
}

// std::nullopt when one of the input boxes is dismissed.
std::optional<Grid> Ask_Grid(Workspace& w) {
  Grid grid;
  double width = 0, height = 0;
  const std::pair<const char*, double*> questions[] = {
      {"Give X for the upper left corner (of the DEM-pixel)", &grid.X0},
      {"Give Y for the upper left corner (of the DEM-pixel)", &grid.Y0},
      {"Give width in X, m", &width},
      {"Give height in Y, m", &height},
      {"Give gridcell size, m ", &grid.cell_size}};
  for (const auto& [prompt, value] : questions) {
    const std::optional<double> answer = Ask_Number(w, prompt);
    if (!answer) return std::nullopt;
    *value = *answer;
  }
  grid.columns = Whole_Cells("width in X", width, grid.cell_size);
  grid.rows = Whole_Cells("height in Y", height, grid.cell_size);
  return grid;
}

// The tiles touched by the current column of cells, each read once.
class ColumnTiles {
 public:
  explicit ColumnTiles(const DriveMap& drives) : drives_(drives) {}

  /// The last echoes of a tile; std::nullopt where there is no tile.
  const std::optional<LastEchoes>& At(const TileIndex& tile) {
    if (tile.col != col_ || echoes_held_ > kMostEchoes) Drop_All();
    col_ = tile.col;
    const auto [entry, is_new] = tiles_.try_emplace(tile.row);
    if (is_new) entry->second = Read(tile);
    return entry->second;
  }

 private:
  void Drop_All() {
    tiles_.clear();
    echoes_held_ = 0;
  }

  std::optional<LastEchoes> Read(const TileIndex& tile) {
    const FilePath file =
        drives_.Locate(kFolder + Format(tile.col, "000_") + Format(tile.row, "000") + ".bin");
    if (!File_Exists(file)) return std::nullopt;
    LastEchoes echoes(Read_Tile_2004(file, kStride));
    echoes_held_ += echoes.Count();
    return echoes;
  }

  const DriveMap& drives_;
  double col_ = std::numeric_limits<double>::quiet_NaN();
  std::map<double, std::optional<LastEchoes>> tiles_;  // by row
  std::size_t echoes_held_ = 0;
};

// Cells row by row, from the north.
struct HeightRasters {
  explicit HeightRasters(const Grid& grid)
      : means(static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(grid.rows)),
        minima(means.size()) {}

  std::vector<float> means, minima;
};

HeightRasters Room_For(const Grid& grid) {
  try {
    return HeightRasters(grid);
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, "rasters of " + Plain_Text(grid.columns) +
                                                 " columns and " + Plain_Text(grid.rows) + " rows");
  }
}

void Fill_Column(const Grid& grid, int col, ColumnTiles& tiles, HeightRasters& rasters) {
  const double X = grid.X0 + (col - 1) * grid.cell_size + grid.cell_size / 2;
  WorkMeter meter(grid.rows);
  for (int row = 1; row <= grid.rows; ++row) {
    meter.Step();
    const double Y = grid.Y0 - (row - 1) * grid.cell_size - grid.cell_size / 2;
    CellHeights heights = kNoHeights;
    if (const auto& echoes = tiles.At(Tile_Index(Campaign::Als2004, X, Y))) {
      heights = echoes->Of_Cell(X, Y, grid.cell_size).value_or(kNoHeights);
    }
    const auto cell = static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(grid.columns) +
                      static_cast<std::size_t>(col - 1);
    rasters.means[cell] = heights.mean;
    rasters.minima[cell] = heights.minimum;
  }
}

std::span<const std::uint8_t> Bytes_Of(const std::vector<float>& cells) {
  return {reinterpret_cast<const std::uint8_t*>(cells.data()), cells.size() * sizeof(float)};
}

void Write_Header(const Workspace& w, const char* name, const Grid& grid, const char* cell_file) {
  const std::string text = Plain_Text(grid.columns) + "\n" + Plain_Text(grid.rows) + "\n" +
                           Plain_Text(grid.X0) + "\n" + Plain_Text(grid.Y0) + "\n" +
                           Plain_Text(grid.cell_size) + "\n-9999\n\"" + cell_file + "\"\n";
  Write_Whole_File(w.Drives.Locate(name), text);
}

}  // namespace

void Create_CHM_from_ALS(Workspace& w) {
  const std::optional<Grid> asked = Ask_Grid(w);
  if (!asked) return;
  const Grid& grid = *asked;
  HeightRasters rasters = Room_For(grid);
  ColumnTiles tiles(w.Drives);
  Progress progress(w, w.Form1.Label2);
  WorkMeter meter(grid.columns);
  for (int col = 1; col <= grid.columns; ++col) {
    Fill_Column(grid, col, tiles, rasters);
    meter.Step();
    progress.Report(Plain_Text(col) + " rows");
  }
  Write_Both({w.Drives.Locate(kChm), Bytes_Of(rasters.means)},
             {w.Drives.Locate(kDem), Bytes_Of(rasters.minima)});
  Write_Header(w, "d:\\data\\laser\\CHM.hdr", grid, kChm);
  Write_Header(w, "d:\\data\\laser\\DEM.hdr", grid, kDem);
}

}  // namespace sylvomex
