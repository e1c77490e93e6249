// SPDX-License-Identifier: MIT
#include "heightmodels/tin_tiles.h"

#include <bit>
#include <cmath>
#include <cstring>

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

void Require_Numbers_Of(const TinModel& model, const std::vector<std::int32_t>& numbers,
                        const FilePath& file) {
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    if (numbers[k] >= 1 && numbers[k] <= model.TriangleCount) continue;
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       file.name + ", item " + std::to_string(k + 1) + ": triangle " +
                           Plain_Text(numbers[k]) + " is not in 1 to " +
                           Plain_Text(model.TriangleCount),
                       file.native);
  }
}

std::int32_t First_In_Tile(const TinModel& model, std::span<const std::int32_t> numbers, double X,
                           double Y) {
  for (const std::int32_t number : numbers) {
    if (Holds(Tin_Triangle_At(model, number), X, Y)) return number;
  }
  return 0;
}

}  // namespace

std::optional<std::vector<std::int32_t>> Read_Tin_Tile(const FilePath& file) {
  if (!File_Exists(file)) return std::nullopt;
  const std::string content = Read_Whole_File(file);
  std::int32_t count = -1;
  if (content.size() >= kNumberSize) std::memcpy(&count, content.data(), kNumberSize);
  if (count < 0 || content.size() != kNumberSize * (static_cast<std::size_t>(count) + 1)) {
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

std::span<const std::int32_t> TinTiles::Numbers_At(const TinModel& model, double X, double Y) {
  const std::string name = Tin_Tile_Name(model, X, Y);
  auto tile = tiles_.find(name);
  if (tile == tiles_.end()) {
    const FilePath file = drives_.Locate(name);
    std::vector<std::int32_t> numbers = Read_Tin_Tile(file).value_or(std::vector<std::int32_t>());
    Require_Numbers_Of(model, numbers, file);
    tile = tiles_.emplace(name, std::move(numbers)).first;
  }
  return tile->second;
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
  const std::span<const std::int32_t> numbers = tiles.Numbers_At(model, X, Y);
  hint = Certain_Holder(model.faces, X, Y);
  if (hint == 0) hint = First_In_Tile(model, numbers, X, Y);
  if (hint == 0) hint = Lowest_Number_By_Buckets(model, X, Y);
  return hint == 0 ? kNoTinHeight : Height_In_Triangle(Tin_Triangle_At(model, hint), X, Y);
}

}  // namespace sylvomex
