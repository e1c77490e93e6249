// SPDX-License-Identifier: MIT
// The input is an image header up to the first 0 byte, then the pixels of its raw file: what the
// header says of them is rendered around its start position, at all zooms.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "imageblock/image_header.h"
#include "imageblock/pane_renderer.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;

constexpr int kPane = 36;

void Render_At(const ImageRecord& image, std::span<const std::uint8_t> bytes, double zoom) {
  const FilePath file{"c:\\data\\fuzz.raw", "/fuzz.raw"};
  RenderRequest request;
  const int extent = static_cast<int>(kPane / zoom);
  request.window = Compute_View_Window(image.SubWidth, image.SubHeight, image.StartCol,
                                       image.StartRow, extent, extent);
  request.zoom_x = request.zoom_y = zoom;
  request.pane_width = request.pane_height = kPane;
  PaneBitmap bitmap;
  const RawPixels raw{bytes, image.SubWidth, image.SubHeight, &file};
  image.ColorFlag == 1 ? Render_Colour(raw, request, bitmap) : Render_Grey(raw, request, bitmap);
  if (bitmap.bgr.size() != std::size_t{3} * kPane * kPane) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  const auto end = std::find(input.begin(), input.end(), std::uint8_t{0});
  const auto length = static_cast<std::size_t>(end - input.begin());
  ListReader header(std::string(input.begin(), end), "c:\\data\\fuzz.hdr");
  const auto pixels = input.subspan(std::min(length + 1, size));
  try {
    const ImageRecord image = Read_Image_Header(header);
    for (const double zoom : {0.1, 1.0 / 6, 0.25, 0.5, 1.0, 2.0, 3.0, 4.0}) {
      try {
        Render_At(image, pixels, zoom);
      } catch (const RunTimeError&) {
        continue;
      }
    }
  } catch (const RunTimeError&) {
    return 0;
  }
  return 0;
}
