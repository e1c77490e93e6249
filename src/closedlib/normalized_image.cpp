// SPDX-License-Identifier: MIT
#include "closedlib/normalized_image.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "closedlib/resampling_by_path.h"
#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kRowsOfATask = 16;
constexpr int kChunk = kResampledTogether;

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

/// Past the last of the segments from `first` on that are computed in the same way.
std::size_t End_Of_Kind(const SourceSegments& segments, std::size_t first, std::size_t last) {
  const auto kind = [&](std::size_t s) { return std::min(segments.span[s], 0); };
  std::size_t end = first + 1;
  while (end < last && kind(end) == kind(first)) ++end;
  return end;
}

/// Chunks of rows, by segments where they allow it.
class ChunkResampler {
 public:
  ChunkResampler(const RasterSource& source, SegmentPath path) : source_(source), path_(path) {}

  /// The pixels from column first_col on; target: their bytes.
  void Resample(const RowProjection& row, int first_col, std::size_t count, std::uint8_t* target) {
    Find_Source_Segments(row, first_col, segments_);
    const std::size_t whole = count / kSegmentPixels;
    for (std::size_t first = 0; first < whole;) {
      const std::size_t end = End_Of_Kind(segments_, first, whole);
      Resample_Kind(row, first_col, first, end, target);
      first = end;
    }
    Resample_By_Pixel(row, first_col, kSegmentPixels * whole, count, target);
  }

 private:
  void Resample_Kind(const RowProjection& row, int first_col, std::size_t first, std::size_t end,
                     std::uint8_t* target) {
    const std::size_t bytes = source_.channels * kSegmentPixels;
    if (segments_.span[first] >= 0) {
      path_(source_, segments_, first, end, target + bytes * first);
    } else if (segments_.span[first] == kBlackSegment) {
      std::fill_n(target + bytes * first, bytes * (end - first), std::uint8_t{0});
    } else {
      Resample_By_Pixel(row, first_col, kSegmentPixels * first, kSegmentPixels * end, target);
    }
  }

  void Resample_By_Pixel(const RowProjection& row, int first_col, std::size_t first,
                         std::size_t end, std::uint8_t* target) {
    if (first == end) return;
    Find_Source_Places(row, first_col + static_cast<int>(first), end - first, places_);
    Interpolate_Raster(source_, places_, end - first, target + source_.channels * first);
  }

  const RasterSource& source_;
  SegmentPath path_;
  SourceSegments segments_;
  SourcePlaces places_;
};

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

void Resample_Rows_By_Path(SegmentPath path, const NormalizedImage& image,
                           std::span<const std::uint8_t> source, int first_row, int rows,
                           std::span<std::uint8_t> target) {
  Require_Sizes(image);
  const std::uint64_t row_bytes = Raster_Bytes(image.width, 1, image.colour);
  Require_Span(source.size(), Raster_Bytes(image.full_width, image.full_height, image.colour),
               "a source");
  Require_Span(target.size(), row_bytes * static_cast<std::uint64_t>(rows), "a target");
  const RasterSource raster = Raster_Source(image, source.data());
  ChunkResampler resampler(raster, path);
  for (int row = 0; row < rows; ++row) {
    const RowProjection projection = Projection_Of_Row(image, first_row + row);
    std::uint8_t* at = target.data() + row_bytes * static_cast<std::uint64_t>(row);
    for (int first = 0; first < image.width; first += kChunk) {
      resampler.Resample(projection, first,
                         static_cast<std::size_t>(std::min(kChunk, image.width - first)),
                         at + raster.channels * static_cast<std::size_t>(first));
    }
  }
}

void Resample_Rows(const NormalizedImage& image, std::span<const std::uint8_t> source,
                   int first_row, int rows, std::span<std::uint8_t> target) {
  static const SegmentPath tables = Byte_Table_Path();
  Resample_Rows_By_Path(tables != nullptr ? tables : Interpolate_Segments, image, source, first_row,
                        rows, target);
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
  mapped.Require_Sound();
  file.Commit();
}

}  // namespace sylvomex
