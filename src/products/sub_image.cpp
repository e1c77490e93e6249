// SPDX-License-Identifier: MIT
#include "products/sub_image.h"

#include <algorithm>
#include <limits>

#include "platform/list_lines.h"
#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "platform/rounding.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr double kPixelBytes = 3;

struct PixelBox {
  double lowest_col = std::numeric_limits<double>::infinity(), highest_col = -lowest_col;
  double lowest_row = lowest_col, highest_row = -lowest_col;
};

PixelBox Box_Of_Corners(const Camera& camera, const GroundBuffer& buffer) {
  PixelBox box;
  for (const double east : {-buffer.east_west, buffer.east_west}) {
    for (const double north : {-buffer.north_south, buffer.north_south}) {
      const auto [col, row] = Object_To_Pixel(
          camera, {buffer.centre.X + east, buffer.centre.Y + north, buffer.centre.Z});
      box.lowest_col = std::min(box.lowest_col, col);
      box.highest_col = std::max(box.highest_col, col);
      box.lowest_row = std::min(box.lowest_row, row);
      box.highest_row = std::max(box.highest_row, row);
    }
  }
  return box;
}

/// Bytes of pixels, checked to what a file can be asked for.
std::int64_t Byte_Count(double pixels, const FilePath& file) {
  const double bytes = pixels * kPixelBytes;
  constexpr double kMost = 4503599627370496.0;  // 2^52: counted exactly up to there
  if (bytes >= 0 && bytes <= kMost) return static_cast<std::int64_t>(bytes);
  throw RunTimeError(Failure::Overflow,
                     file.name + ": a cut-out of " + Plain_Text(bytes) + " bytes", file.native);
}

}  // namespace

std::vector<GroundBuffer> Read_Ground_Buffers(const FilePath& file) {
  std::vector<GroundBuffer> buffers;
  For_Each_Line(file, [&](ListReader& line) {
    GroundBuffer& buffer = buffers.emplace_back();
    for (double* value : {&buffer.centre.X, &buffer.centre.Y, &buffer.centre.Z, &buffer.east_west,
                          &buffer.north_south}) {
      *value = line.Read_Double();
    }
    line.Read_Text_To_Comma();
  });
  return buffers;
}

RawRectangle Rectangle_Around(const ImageRecord& image, const Camera& camera,
                              const GroundBuffer& buffer) {
  const auto clipped = [](double position) { return std::max(0.0, Round_Half_Even(position)); };
  const PixelBox box = Box_Of_Corners(camera, buffer);
  const double bottom_row = image.FullHeight - 1.0 - image.SubRowOrigin;
  const double first_col = clipped(clipped(box.lowest_col) - image.SubColOrigin);
  const double last_col = clipped(clipped(box.highest_col) - image.SubColOrigin);
  const double first_row = clipped(bottom_row - clipped(box.highest_row));
  const double last_row = clipped(bottom_row - clipped(box.lowest_row));
  return {first_col, first_row, last_col - first_col + 1, last_row - first_row + 1};
}

ImageRecord Cut_Out_Record(const ImageRecord& image, const RawRectangle& rectangle,
                           const std::string& raw_name) {
  ImageRecord cut = image;
  cut.RawFileName = raw_name;
  cut.SubWidth = rectangle.columns;
  cut.SubHeight = rectangle.rows;
  cut.SubColOrigin = image.SubColOrigin + rectangle.first_col;
  cut.SubRowOrigin = image.SubRowOrigin + rectangle.first_row;
  return cut;
}

void Write_Cut_Out(const PositionalFile& raw, const ImageRecord& image,
                   const RawRectangle& rectangle, const FilePath& file) {
  const std::int64_t size = Byte_Count(rectangle.columns * rectangle.rows, file);
  ReplacingFile cut_out(file, static_cast<std::uint64_t>(size));
  const std::int64_t row_bytes = Byte_Count(rectangle.columns, file);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(row_bytes));
  WorkMeter meter(rectangle.rows);
  for (std::int64_t done = 0; done < size; done += row_bytes) {
    meter.Step();
    const std::int64_t rows_done = done / row_bytes;
    const double row = rectangle.first_row + static_cast<double>(rows_done);
    raw.Read_At(Byte_Count(rectangle.first_col + image.FullWidth * row, file), bytes);
    cut_out.Write_At(static_cast<std::uint64_t>(done), bytes);
  }
  cut_out.Commit();
}

}  // namespace sylvomex
