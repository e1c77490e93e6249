// SPDX-License-Identifier: MIT
#include "plain_renderer.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace sylvomex {
namespace {

struct Pixel {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
};

struct Scene {
  const RawPixels& raw;
  const RenderRequest& request;
  bool colour;
  PlainRender result;
};

/// Half to even under the default rounding mode.
int Whole(double value) { return static_cast<int>(std::nearbyint(value)); }

int Window_Cols(const Scene& s) {
  return s.request.window.last_col - s.request.window.first_col + 1;
}
int Window_Rows(const Scene& s) {
  return s.request.window.last_row - s.request.window.first_row + 1;
}

double First_Byte(const Scene& s, int raw_row, bool zooming_out) {
  const double width = s.raw.sub_width;
  const int col = s.request.window.first_col;
  if (!s.colour) return std::nearbyint(raw_row * width + col) + 1;
  if (zooming_out) return std::nearbyint(raw_row * width * 3.0 + col * 3) + 1;
  return std::nearbyint(width) * raw_row * 3 + col * 3 + 1;
}

/// One file row from the window's first to its last column, 0 past the file's end.
std::vector<std::uint8_t> Read_Row(const Scene& s, int raw_row, bool zooming_out) {
  const double first = First_Byte(s, raw_row, zooming_out);
  if (first < 1) throw std::runtime_error("before the file's start");
  std::vector<std::uint8_t> row;
  for (int at = 0; at < Window_Cols(s) * (s.colour ? 3 : 1); ++at) {
    const double byte = first + at;
    const bool there = byte <= static_cast<double>(s.raw.bytes.size());
    row.push_back(there ? s.raw.bytes[static_cast<std::size_t>(byte - 1)] : std::uint8_t{0});
  }
  return row;
}

Pixel Pixel_Of(const Scene& s, const std::vector<std::uint8_t>& row, int col) {
  if (col < 0 || col >= Window_Cols(s)) return {};
  const auto at = static_cast<std::size_t>(col);
  if (!s.colour) return {row[at], row[at], row[at]};
  return {row[3 * at + 2], row[3 * at + 1], row[3 * at]};
}

void Put(Scene& s, int px, int py, Pixel pixel, bool from_source) {
  if (px >= s.request.pane_width || py >= s.request.pane_height) return;
  if (from_source && s.colour && s.request.gamma) {
    const GammaTable& gamma = *s.request.gamma;
    pixel = {gamma[pixel.blue], gamma[pixel.green], gamma[pixel.red]};
  }
  std::uint8_t* at =
      &s.result.picture.bgr[static_cast<std::size_t>(3 * (py * s.request.pane_width + px))];
  at[0] = pixel.blue;
  at[1] = pixel.green;
  at[2] = pixel.red;
}

void One_To_One(Scene& s) {
  for (int i = 0; i < std::min(Window_Rows(s), s.request.pane_height); ++i) {
    const auto row = Read_Row(s, s.request.window.first_row + i, false);
    for (int j = 0; j < Window_Cols(s); ++j) Put(s, j, i, Pixel_Of(s, row, j), true);
  }
}

void Zoom_In(Scene& s) {
  const int margin = s.colour ? 100 : 30;
  const int sx = Whole(s.request.zoom_x);
  const int sy = Whole(s.request.zoom_y);
  const int work_width = s.request.pane_width + margin;
  const int work_height = s.request.pane_height + margin;
  std::vector<Pixel> work(static_cast<std::size_t>(work_width * work_height));
  for (int i = 0; i < Window_Rows(s); ++i) {
    if (sy * i >= s.request.pane_height && !s.request.window.fits) break;
    const auto row = Read_Row(s, s.request.window.first_row + i, false);
    for (int j = 0; j < Window_Cols(s); ++j) {
      for (int y = sy * i; y < sy * i + sy; ++y) {
        for (int x = sx * j; x < sx * j + sx; ++x) {
          const bool inside = x < work_width && y < work_height;
          if (!inside && s.request.window.fits) throw std::out_of_range("work array");
          if (inside) work[static_cast<std::size_t>(y * work_width + x)] = Pixel_Of(s, row, j);
        }
      }
    }
  }
  for (int y = 0; y < s.request.pane_height; ++y) {
    for (int x = 0; x < s.request.pane_width; ++x) {
      Put(s, x, y, work[static_cast<std::size_t>(y * work_width + x)], true);
    }
  }
}

void Zoom_Out(Scene& s) {
  const ViewWindow& window = s.request.window;
  const int sx = Whole(1 / s.request.zoom_x);
  const int sy = Whole(1 / s.request.zoom_y);
  for (int i = 0; i < s.request.pane_height; ++i) {
    const auto row = Read_Row(s, window.first_row + i * sy, true);
    for (int j = 0; j < s.request.pane_width; ++j) {
      const int a = sx * i + window.first_col;
      const int b = sx * j + window.first_row;
      if (a < 0 || a > s.raw.sub_width || b < 0 || b > s.raw.sub_height) {
        ++s.result.exceeding;
        Put(s, j, i, {255, 255, 255}, false);
      } else {
        Put(s, j, i, Pixel_Of(s, row, j * sx), true);
      }
    }
  }
}

}  // namespace

PlainRender Render_Plainly(const RawPixels& raw, const RenderRequest& request, bool colour) {
  Scene s{raw, request, colour, {}};
  s.result.picture.width = request.pane_width;
  s.result.picture.height = request.pane_height;
  s.result.picture.bgr.assign(
      static_cast<std::size_t>(3 * request.pane_width * request.pane_height), 0);
  const double zoom = request.zoom_x;
  if (zoom > 0.99 && zoom < 1.1) {
    One_To_One(s);
  } else if (zoom > 1.0) {
    Zoom_In(s);
  } else {
    Zoom_Out(s);
  }
  return s.result;
}

}  // namespace sylvomex
