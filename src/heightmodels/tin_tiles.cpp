// SPDX-License-Identifier: MIT
#include "heightmodels/tin_tiles.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

static_assert(std::endian::native == std::endian::little, "tile files are little-endian");

namespace sylvomex {
namespace {

constexpr const char* kTileFolder = "c:\\data\\Tris\\";
constexpr double kTileSide = 100;  // metres
constexpr std::size_t kNumberSize = sizeof(std::int32_t);

std::string Tile_Line(double from_corner) {
  return Format(std::floor(from_corner / kTileSide), "000");
}

[[noreturn]] void Refuse_Number(const TinModel& model, std::int32_t number, std::size_t item,
                                const FilePath& file) {
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     file.name + ", item " + std::to_string(item) + ": triangle " +
                         Plain_Text(number) + " is not in 1 to " + Plain_Text(model.TriangleCount),
                     file.native);
}

}  // namespace

std::vector<std::int32_t> Read_Tin_Tile(const FilePath& file) {
  if (!File_Exists(file)) return {};
  const std::string content = Read_Whole_File(file);
  if (content.empty()) return {};
  std::int32_t count = -1;
  if (content.size() >= kNumberSize) std::memcpy(&count, content.data(), kNumberSize);
  if (count < 0 || content.size() / kNumberSize - 1 < static_cast<std::size_t>(count)) {
    throw RunTimeError(Failure::BadContent,
                       file.name + ": " + std::to_string(content.size()) +
                           " bytes do not hold a count and as many triangle numbers (count " +
                           Plain_Text(count) + ")",
                       file.native);
  }
  std::vector<std::int32_t> numbers(static_cast<std::size_t>(count));
  if (count > 0) {
    std::memcpy(numbers.data(), content.data() + kNumberSize, kNumberSize * numbers.size());
  }
  return numbers;
}

std::string Tin_Tile_Name(const TinModel& model, double X, double Y) {
  return kTileFolder + Tile_Line(X - model.TileMinX) + Tile_Line(Y - model.TileMinY) + ".bin";
}

const TinTiles::Tile& TinTiles::Tile_At(const TinModel& model, double X, double Y) {
  const std::string name = Tin_Tile_Name(model, X, Y);
  const auto held = tiles_.find(name);
  if (held != tiles_.end()) return held->second;
  Tile tile;
  tile.file = drives_.Locate(name);
  tile.numbers = Read_Tin_Tile(tile.file);
  if (!tile.numbers.empty()) {
    const auto [least, greatest] = std::ranges::minmax(tile.numbers);
    tile.least = least;
    tile.greatest = greatest;
  }
  return tiles_.emplace(name, std::move(tile)).first->second;
}

std::int32_t TinTiles::First_Holder(const TinModel& model, double X, double Y,
                                    std::int32_t certain) {
  const Tile& tile = Tile_At(model, X, Y);
  const bool all_exist = tile.least >= 1 && tile.greatest <= model.TriangleCount;
  if (certain != 0 && all_exist) return certain;
  for (std::size_t k = 0; k < tile.numbers.size(); ++k) {
    const std::int32_t number = tile.numbers[k];
    if (number < 1 || number > model.TriangleCount) Refuse_Number(model, number, k + 1, tile.file);
    if (Holds(Tin_Triangle_At(model, number), X, Y)) return number;
  }
  return 0;
}

double Tin_Elevation_Tiled(const TinModel& model, double X, double Y, std::int32_t& hint,
                           TinTiles& tiles) {
  if (X < model.TileMinX || X > model.TileMaxX) {
    hint = 0;
    return kNoTinHeight;
  }
  if (hint != 0) {
    const TinTriangle& hinted = Tin_Triangle_At(model, hint);
    if (Holds(hinted, X, Y)) return Height_In_Triangle(hinted, X, Y);
  }
  hint = tiles.First_Holder(model, X, Y, Certain_Holder(model.faces, X, Y));
  if (hint == 0) hint = Lowest_Number_By_Buckets(model, X, Y);
  return hint == 0 ? kNoTinHeight : Height_In_Triangle(Tin_Triangle_At(model, hint), X, Y);
}

}  // namespace sylvomex
