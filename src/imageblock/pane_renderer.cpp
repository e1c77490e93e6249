// SPDX-License-Identifier: MIT
#include "imageblock/pane_renderer.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <vector>

#include "imageblock/pane_kernels.h"
#include "imageblock/raw_rows.h"
#include "platform/memory_room.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kLargestPane = 32767;
constexpr std::size_t kRowsAhead = 4;          // prefetch distance in rows
constexpr std::size_t kRowsAheadGathered = 2;  // their bytes lie scattered over many lines

using RowBytes = std::span<const std::uint8_t>;

/// One rendering: inputs shared by the three paths.
struct Job {
  const RawPixels& raw;
  const RenderRequest& request;
  RawLayout layout;
  const GammaTable* gamma;  // nullptr: none
  std::int64_t cols;        // size of the window
  std::int64_t rows;
  PaneBitmap& out;
};

std::int64_t Count(int first, int last) {
  return std::max<std::int64_t>(0, std::int64_t{last} - first + 1);
}

void Size_To_Pane(const RenderRequest& request, PaneBitmap& out) {
  for (const int size : {request.pane_width, request.pane_height}) {
    if (size >= 0 && size <= kLargestPane) continue;
    throw RunTimeError(
        Failure::SubscriptOutOfRange,
        "pane size " + std::to_string(size) + " is not in 0 to " + std::to_string(kLargestPane));
  }
  const auto width = static_cast<std::size_t>(request.pane_width);
  const auto height = static_cast<std::size_t>(request.pane_height);
  const std::string what =
      "a pane of " + std::to_string(width) + " x " + std::to_string(height) + " pixels";
  Require_Memory(3 * width * height, what);
  try {
    out.bgr.resize(3 * width * height);
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, what);
  }
  out.width = request.pane_width;
  out.height = request.pane_height;
}

std::uint8_t* Pane_Row(PaneBitmap& out, std::int64_t py) {
  return out.bgr.data() + 3 * std::int64_t{out.width} * py;
}

/// Black from pixel px of a row to its end.
void Blacken_Rest(PaneBitmap& out, std::int64_t px, std::int64_t py) {
  std::fill_n(Pane_Row(out, py) + 3 * px, 3 * (out.width - px), std::uint8_t{0});
}

void Blacken_Rows(PaneBitmap& out, std::int64_t first_py) {
  std::fill(out.bgr.begin() + 3 * std::int64_t{out.width} * first_py, out.bgr.end(),
            std::uint8_t{0});
}

void Apply_Gamma(const GammaTable* gamma, std::uint8_t* bytes, std::size_t count) {
  if (gamma == nullptr) return;
  for (std::size_t at = 0; at < count; ++at) bytes[at] = (*gamma)[bytes[at]];
}

/// The first rows of the window, each truncated to the pixels that the pane shows.
std::vector<RowBytes> Window_Rows(const Job& job, std::int64_t rows, std::int64_t pixels) {
  std::vector<RowBytes> sources;
  sources.reserve(static_cast<std::size_t>(rows));
  const ViewWindow& window = job.request.window;
  for (std::int64_t row = 0; row < rows; ++row) {
    const double raw_row = window.first_row + static_cast<double>(row);
    const double position = Raw_Position(job.raw, job.layout, window.first_col, raw_row);
    sources.push_back(Raw_Bytes(job.raw, position, pixels * Bytes_Per_Pixel(job.layout)));
  }
  return sources;
}

/// Copies a row for the kernels: gamma applied, 0 past the end of the file.
void Copy_Row(const Job& job, RowBytes source, std::size_t bytes,
              std::vector<std::uint8_t>& buffer) {
  std::copy(source.begin(), source.end(), buffer.begin());
  std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(source.size()),
            buffer.begin() + static_cast<std::ptrdiff_t>(bytes), std::uint8_t{0});
  Apply_Gamma(job.gamma, buffer.data(), source.size());
}

void Prefetch_Row(const std::vector<RowBytes>& sources, std::size_t row) {
  if (row < sources.size()) Prefetch_Bytes(sources[row]);
}

/// Number of source pixels along a row or column that fit in the pane.
std::int64_t Pixels_Needed(std::int64_t pane_size, std::int64_t factor) {
  return (pane_size + factor - 1) / factor;
}

/// Repeats every source pixel in blocks of factor_x by factor_y, both at least 1.
void Replicate(const Job& job, std::int64_t factor_x, std::int64_t factor_y) {
  const std::int64_t cols = std::min(job.cols, Pixels_Needed(job.out.width, factor_x));
  const std::int64_t rows = std::min(job.rows, Pixels_Needed(job.out.height, factor_y));
  const std::vector<RowBytes> sources = Window_Rows(job, rows, cols);
  const std::int64_t painted = std::min<std::int64_t>(cols * factor_x, job.out.width);
  const auto painted_bytes = static_cast<std::size_t>(3 * painted);
  const auto source_bytes = static_cast<std::size_t>(cols * Bytes_Per_Pixel(job.layout));
  const ExpandPlan plan = Make_Expand_Plan(Bytes_Per_Pixel(job.layout), factor_x);
  std::vector<std::uint8_t> buffer(source_bytes + ExpandPlan::kSourceSlack);
  std::vector<std::uint8_t> pane_row(painted_bytes + ExpandPlan::kTargetSlack);
  for (std::int64_t row = 0; row < rows; ++row) {
    const auto at = static_cast<std::size_t>(row);
    Prefetch_Row(sources, at + kRowsAhead);
    Copy_Row(job, sources[at], source_bytes, buffer);
    Expand_Row(plan, buffer.data(), static_cast<std::size_t>(painted), pane_row.data());
    const std::int64_t end = std::min<std::int64_t>((row + 1) * factor_y, job.out.height);
    for (std::int64_t py = row * factor_y; py < end; ++py) {
      std::copy_n(pane_row.data(), painted_bytes, Pane_Row(job.out, py));
      Blacken_Rest(job.out, painted, py);
    }
  }
  Blacken_Rows(job.out, std::min<std::int64_t>(rows * factor_y, job.out.height));
}

/// Colour, one to one: directly from the file to the pane where the file holds the whole row.
void Swap_Rows(const Job& job) {
  const std::int64_t cols = std::min<std::int64_t>(job.cols, job.out.width);
  const std::int64_t rows = std::min<std::int64_t>(job.rows, job.out.height);
  const std::vector<RowBytes> sources = Window_Rows(job, rows, cols);
  const auto row_bytes = static_cast<std::size_t>(3 * cols);
  std::vector<std::uint8_t> buffer(row_bytes);
  for (std::int64_t py = 0; py < rows; ++py) {
    const auto at = static_cast<std::size_t>(py);
    Prefetch_Row(sources, at + kRowsAhead);
    const bool as_it_is = job.gamma == nullptr && sources[at].size() == row_bytes;
    if (!as_it_is) Copy_Row(job, sources[at], row_bytes, buffer);
    Swap_Rgb_Row(as_it_is ? sources[at].data() : buffer.data(), static_cast<std::size_t>(cols),
                 Pane_Row(job.out, py));
    Blacken_Rest(job.out, cols, py);
  }
  Blacken_Rows(job.out, rows);
}

void Check_Margin(std::int64_t pixels, std::int64_t factor, int pane_size, int margin) {
  const std::int64_t last = std::int64_t{pane_size} - 1 + margin;
  if (pixels <= (last + 1) / factor) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     std::to_string(pixels) + " pixels in blocks of " + std::to_string(factor) +
                         " leave the work array, which ends at " + std::to_string(last));
}

void Zoom_In(const Job& job, int margin) {
  const std::int64_t factor_x = To_Int32(job.request.zoom_x);
  const std::int64_t factor_y = To_Int32(job.request.zoom_y);
  if (factor_y < 1 || job.cols == 0 || job.rows == 0) return Blacken_Rows(job.out, 0);
  // A raw file smaller than the view on one side is shown as far as it reaches in the pane.
  if (job.request.window.fits) {
    Check_Margin(job.cols, factor_x, job.out.width, margin);
    Check_Margin(job.rows, factor_y, job.out.height, margin);
  }
  Replicate(job, factor_x, factor_y);
}

struct Interval {
  std::int64_t begin = 0;
  std::int64_t end = 0;
};

/// Steps k of 0 to count - 1 with origin + k x step in 0 to limit, both ends allowed.
Interval Steps_Inside(std::int64_t step, int origin, double limit, std::int64_t count) {
  const auto outside = [&](std::int64_t k) {
    const auto at = static_cast<double>(origin + k * step);
    return !(at >= 0 && at <= limit);
  };
  Interval inside{0, count};
  while (inside.begin < inside.end && outside(inside.begin)) ++inside.begin;
  while (inside.begin < inside.end && outside(inside.end - 1)) --inside.end;
  return inside;
}

/// The pane pixels begin to end of one row; pixel px is taken at px x step_x of the row read.
void Subsample_Row(const Job& job, RowBytes source, RowBytes ahead, std::int64_t step_x,
                   Interval shown, std::uint8_t* pane_row) {
  const std::int64_t pixel_size = Bytes_Per_Pixel(job.layout);
  const std::int64_t step = step_x * pixel_size;
  const auto have = static_cast<std::int64_t>(source.size());
  std::int64_t px = shown.begin;
  if (step > 0 && have >= pixel_size) {
    const std::int64_t whole = std::min(shown.end, (have - pixel_size) / step + 1);
    if (px < whole) {
      const auto skip = static_cast<std::size_t>(px * step);
      Gather_Row(source.data() + skip, static_cast<int>(pixel_size), static_cast<std::size_t>(step),
                 static_cast<std::size_t>(whole - px), ahead.subspan(std::min(skip, ahead.size())),
                 pane_row + 3 * px);
      px = whole;
    }
  }
  for (; px < shown.end; ++px) {
    for (std::int64_t channel = 0; channel < 3; ++channel) {
      const std::int64_t from = px * step + (pixel_size == 3 ? 2 - channel : 0);
      pane_row[3 * px + channel] =
          from >= 0 && from < have ? source[static_cast<std::size_t>(from)] : std::uint8_t{0};
    }
  }
  const auto bytes = static_cast<std::size_t>(3 * (shown.end - shown.begin));
  Apply_Gamma(job.gamma, pane_row + 3 * shown.begin, bytes);
}

std::vector<RowBytes> Subsampled_Rows(const Job& job, std::int64_t step_y) {
  const ViewWindow& window = job.request.window;
  std::vector<RowBytes> sources;
  sources.reserve(static_cast<std::size_t>(job.out.height));
  for (std::int64_t py = 0; py < job.out.height; ++py) {
    const auto raw_row = static_cast<double>(window.first_row + py * step_y);
    const double position =
        Raw_Position_Zooming_Out(job.raw, job.layout, window.first_col, raw_row);
    sources.push_back(Raw_Bytes(job.raw, position, job.cols * Bytes_Per_Pixel(job.layout)));
  }
  return sources;
}

/// Reports each pixel outside the file after the picture is complete, so that events serviced
/// by the message never see a half-drawn picture.
void Report_Exceeding(const RenderRequest& request, std::int64_t pixels) {
  if (!request.on_exceeding) return;
  for (std::int64_t pixel = 0; pixel < pixels; ++pixel) request.on_exceeding();
}

/// The pane's row counter is compared with the columns and its column counter with the rows
/// (required; panes are square).
void Zoom_Out(const Job& job) {
  const std::int64_t step_y = To_Int32(1 / job.request.zoom_y);
  const std::int64_t step_x = To_Int32(1 / job.request.zoom_x);
  const ViewWindow& window = job.request.window;
  const Interval rows_inside =
      Steps_Inside(step_x, window.first_col, job.raw.sub_width, job.out.height);
  const Interval cols_inside =
      Steps_Inside(step_x, window.first_row, job.raw.sub_height, job.out.width);
  const std::vector<RowBytes> sources = Subsampled_Rows(job, step_y);
  std::int64_t exceeding = 0;
  for (std::int64_t py = 0; py < job.out.height; ++py) {
    const bool row_inside = py >= rows_inside.begin && py < rows_inside.end;
    const Interval shown = row_inside ? cols_inside : Interval{};
    const auto at = static_cast<std::size_t>(py);
    const std::size_t ahead = at + kRowsAheadGathered;
    std::uint8_t* pane_row = Pane_Row(job.out, py);
    std::fill_n(pane_row, 3 * shown.begin, std::uint8_t{255});
    Subsample_Row(job, sources[at], ahead < sources.size() ? sources[ahead] : RowBytes{}, step_x,
                  shown, pane_row);
    std::fill_n(pane_row + 3 * shown.end, 3 * (job.out.width - shown.end), std::uint8_t{255});
    exceeding += job.out.width - (shown.end - shown.begin);
  }
  Report_Exceeding(job.request, exceeding);
}

void Render(const RawPixels& raw, const RenderRequest& request, RawLayout layout, int margin,
            PaneBitmap& out) {
  Check_Raw_Length(raw, layout);
  Size_To_Pane(request, out);
  const bool gamma = layout == RawLayout::Colour && request.gamma.has_value();
  const ViewWindow& window = request.window;
  const Job job{raw,
                request,
                layout,
                gamma ? &*request.gamma : nullptr,
                Count(window.first_col, window.last_col),
                Count(window.first_row, window.last_row),
                out};
  const double zoom = request.zoom_x;
  const bool one_to_one = zoom > 0.99 && zoom < 1.1;
  if (one_to_one && layout == RawLayout::Colour) return Swap_Rows(job);
  if (one_to_one) return Replicate(job, 1, 1);
  if (zoom > 1.0) return Zoom_In(job, margin);
  Zoom_Out(job);
}

}  // namespace

GammaTable Make_Gamma_Table(double exponent) {
  GammaTable table{};
  for (std::size_t value = 0; value < table.size(); ++value) {
    const double raised = std::pow(static_cast<double>(value), exponent);
    table[value] = To_Byte(raised * 255 / std::pow(255.0, exponent));
  }
  return table;
}

void Render_Grey(const RawPixels& raw, const RenderRequest& request, PaneBitmap& out) {
  Render(raw, request, RawLayout::Grey, 30, out);
}

void Render_Colour(const RawPixels& raw, const RenderRequest& request, PaneBitmap& out) {
  Render(raw, request, RawLayout::Colour, 100, out);
}

}  // namespace sylvomex
