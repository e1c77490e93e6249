// SPDX-License-Identifier: MIT
#include "closedlib/normalized_image.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "closedlib/resampling_rows.h"
#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kRowsOfATask = 16;

// A row of the target crosses many rows of the source, each for a few cache lines: too short for
// the hardware's prefetcher. The next rows of the target need the lines below.
constexpr int kRowsAhead = 3;

RowProjection Projection_Of_Row(const NormalizedImage& image, int row) {
  RowProjection projection;
  projection.Xmin = image.Xmin;
  projection.PixelWidth = image.PixelWidth;
  projection.yn = image.Ymax - row * image.PixelWidth;
  projection.c = image.c;
  projection.matrix = image.matrix;
  projection.affine = image.affine;
  projection.last_col = image.full_width - 1.0;
  projection.last_row = image.full_height - 1.0;
  projection.last_start_col = std::max(0.0, projection.last_col - 1);
  projection.last_start_row = std::max(0.0, projection.last_row - 1);
  return projection;
}

std::ptrdiff_t Pixels_Below(const NormalizedImage& image) {
  return image.full_height > 1 ? image.full_width : 0;
}

std::ptrdiff_t Pixels_Right(const NormalizedImage& image) { return image.full_width > 1 ? 1 : 0; }

RasterSource Raster_Source(const NormalizedImage& image, const std::uint8_t* bytes) {
  RasterSource source;
  source.bytes = bytes;
  source.channels = image.colour ? 3 : 1;
  const auto channels = static_cast<std::ptrdiff_t>(source.channels);
  source.right = channels * Pixels_Right(image);
  source.below = channels * Pixels_Below(image);
  source.ahead = kRowsAhead * source.below;
  const std::int64_t size = channels * image.full_width * image.full_height;
  const auto room = static_cast<std::int64_t>(kVectorRoom);
  source.last_whole = (size - source.right - source.below - room) / channels - 1;
  return source;
}

void Resample_Row(const NormalizedImage& image, const std::uint8_t* bytes, int row,
                  std::uint8_t* target) {
  const RowProjection projection = Projection_Of_Row(image, row);
  const RasterSource source = Raster_Source(image, bytes);
  SourcePlaces places;
  std::array<std::uint8_t, 3 * kResampledTogether + kVectorRoom> chunk;
  const auto width = static_cast<std::size_t>(image.width);
  for (std::size_t first = 0; first < width; first += kResampledTogether) {
    const std::size_t count = std::min(kResampledTogether, width - first);
    Find_Source_Places(projection, static_cast<int>(first), count, places);
    Interpolate_Raster(source, places, count, chunk.data());
    std::copy_n(chunk.data(), source.channels * count, target + source.channels * first);
  }
}

void Require_Sizes(const NormalizedImage& image) {
  for (const int size : {image.width, image.height, image.full_width, image.full_height}) {
    if (size >= 1) continue;
    throw RunTimeError(Failure::BadContent,
                       "a normalised image with a side of " + std::to_string(size) + " pixels");
  }
}

void Require_Span(std::uint64_t have, std::uint64_t wanted, const char* what) {
  if (have >= wanted) return;
  throw RunTimeError(Failure::SubscriptOutOfRange, std::string(what) + " of " +
                                                       std::to_string(have) + " bytes, " +
                                                       std::to_string(wanted) + " are needed");
}

void Require_Length(const MappedFile& source, std::uint64_t wanted) {
  if (source.Bytes().size() >= wanted) return;
  throw RunTimeError(Failure::InputPastEnd,
                     source.File().name + ": the image has " + std::to_string(wanted) +
                         " bytes, the file " + std::to_string(source.Bytes().size()),
                     source.File().native);
}

}  // namespace

std::uint64_t Raster_Bytes(std::int16_t width, std::int16_t height, bool colour) {
  return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * (colour ? 3 : 1);
}

void Resample_Rows(const NormalizedImage& image, std::span<const std::uint8_t> source,
                   int first_row, int rows, std::span<std::uint8_t> target) {
  Require_Sizes(image);
  const std::uint64_t row_bytes = Raster_Bytes(image.width, 1, image.colour);
  Require_Span(source.size(), Raster_Bytes(image.full_width, image.full_height, image.colour),
               "a source");
  Require_Span(target.size(), row_bytes * static_cast<std::uint64_t>(rows), "a target");
  for (int row = 0; row < rows; ++row) {
    Resample_Row(image, source.data(), first_row + row,
                 target.data() + row_bytes * static_cast<std::uint64_t>(row));
  }
}

void MYFUNC_CREATENORMALIZEDIMAGE(const NormalizedImage& image, const FilePath& source,
                                  const FilePath& target, int threads) {
  Require_Sizes(image);
  const MappedFile mapped(source);
  Require_Length(mapped, Raster_Bytes(image.full_width, image.full_height, image.colour));
  ReplacingFile file(target, Raster_Bytes(image.width, image.height, image.colour));
  const std::uint64_t row_bytes = Raster_Bytes(image.width, 1, image.colour);
  const int tasks = (image.height + kRowsOfATask - 1) / kRowsOfATask;
  // Each task writes its own rows, so writing overlaps with the computation of other tasks.
  Run_Tasks(tasks, threads, [&](int task) {
    const int first = task * kRowsOfATask;
    const int rows = std::min(kRowsOfATask, image.height - first);
    std::vector<std::uint8_t> bytes(row_bytes * static_cast<std::uint64_t>(rows));
    Resample_Rows(image, mapped.Bytes(), first, rows, bytes);
    file.Write_At(row_bytes * static_cast<std::uint64_t>(first), bytes);
  });
  file.Commit();
}

}  // namespace sylvomex
