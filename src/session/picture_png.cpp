// SPDX-License-Identifier: MIT
#include "session/picture_png.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "panes/picture_painter.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {

namespace {

constexpr int kBorders = 4;  // pixels; left and right (or top and bottom) border of a pane together
constexpr int kLargestSide = 16384;  // pixels

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

struct Size {
  int width = 0;
  int height = 0;
};

Size Inner_Size(const Picture& picture) {
  const Size inner{static_cast<int>(std::lround(picture.Width)) - kBorders,
                   static_cast<int>(std::lround(picture.Height)) - kBorders};
  if (inner.width > 0 && inner.height > 0) return inner;
  if (picture.bitmap) return {picture.bitmap->width, picture.bitmap->height};
  return {};
}

void Paint_Picture(cairo_surface_t* surface, Size size, const Picture& picture) {
  auto* const first = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
  if (first == nullptr) return;  // cairo reports the error when the surface is written
  const std::ptrdiff_t bytes_a_row = cairo_image_surface_get_stride(surface);
  const PixelView pixels{first, size.width, size.height,
                         bytes_a_row / std::ptrdiff_t{sizeof(std::uint32_t)}};
  cairo_surface_flush(surface);
  Paint_Bitmap(pixels, picture.bitmap.get());
  Paint_Marks(pixels, picture, 0);
  Paint_Floating(pixels, picture);
  cairo_surface_mark_dirty(surface);
}

cairo_status_t Append_Bytes(void* png, const unsigned char* bytes, unsigned count) {
  auto& all = *static_cast<std::vector<std::uint8_t>*>(png);
  all.insert(all.end(), bytes, bytes + count);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

void Save_Picture_Png(const Picture& picture, const std::filesystem::path& file) {
  const Size size = Inner_Size(picture);
  if (std::min(size.width, size.height) < 1 || std::max(size.width, size.height) > kLargestSide) {
    throw RunTimeError(Failure::BadContent, "the picture has no size that an image can have");
  }
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
  Paint_Picture(surface.get(), size, picture);
  std::vector<std::uint8_t> png;
  const cairo_status_t composed =
      cairo_surface_write_to_png_stream(surface.get(), Append_Bytes, &png);
  if (composed != CAIRO_STATUS_SUCCESS) {
    throw RunTimeError(Failure::FileFailure,
                       file.string() + ": " + cairo_status_to_string(composed), file);
  }
  Replace_Whole_File({file.string(), file}, png);
}

}  // namespace sylvomex
