// SPDX-License-Identifier: MIT
#include "panes/magnified_view.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "panes/pane_drawing.h"
#include "panes/shown_raster.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

/// The raw pixels of one axis.
struct Span {
  int first = 0;
  int count = 0;
  int cut = 0;  // magnifier pixels of the first one that lie outside the magnifier

  [[nodiscard]] int Last() const { return first + count - 1; }
};

Span Span_About(double raw, int factor, int side, double raw_size) {
  const int size = To_Int32(raw_size);
  const double left = std::clamp(raw - side / 2.0 / factor, 0.0,
                                 std::max(0.0, raw_size - static_cast<double>(side) / factor));
  const int left_blocks = To_Int32(left * factor);
  Span span;
  span.first = left_blocks / factor;
  span.cut = left_blocks % factor;
  span.count = std::min((side + span.cut + factor - 1) / factor, size - span.first);
  return span;
}

/// The square that begins at the cuts of both axes.
PaneBitmap Cut_Square(const PaneBitmap& blocks, const Span& cols, const Span& rows, int side) {
  PaneBitmap square;
  square.width = square.height = side;
  square.bgr.resize(3 * static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  const int width = std::min(side, blocks.width - cols.cut);
  const int height = std::min(side, blocks.height - rows.cut);
  for (int y = 0; y < height; ++y) {
    const std::ptrdiff_t from = 3 * (std::ptrdiff_t{y + rows.cut} * blocks.width + cols.cut);
    std::memcpy(square.bgr.data() + 3 * std::ptrdiff_t{y} * side, blocks.bgr.data() + from,
                3 * static_cast<std::size_t>(width));
  }
  return square;
}

RenderRequest Request_For(const Span& cols, const Span& rows, int factor) {
  RenderRequest request;
  request.window = {cols.first, rows.first, cols.Last(), rows.Last(), true};
  request.zoom_x = request.zoom_y = factor;
  request.pane_width = cols.count * factor;
  request.pane_height = rows.count * factor;
  return request;
}

MagnifiedView Magnify_Shown(Workspace& w, int image, const PanePosition& at, int factor, int side) {
  const PaneView view = Shown_View(w, image);
  const ViewFrame frame = Shown_Frame(w, image);
  const Span cols = Span_About(view.ViewCol + at.px / view.ZoomX, factor, side, frame.sub_width);
  const Span rows = Span_About(view.ViewRow + at.py / view.ZoomY, factor, side, frame.sub_height);
  const PaneBitmap blocks = Render_Shown(w, image, Request_For(cols, rows, factor));
  const double raw_left = cols.first + static_cast<double>(cols.cut) / factor;
  const double raw_top = rows.first + static_cast<double>(rows.cut) / factor;
  return {Cut_Square(blocks, cols, rows, side),
          {(raw_left - view.ViewCol) * view.ZoomX, (raw_top - view.ViewRow) * view.ZoomY},
          factor / view.ZoomX,
          factor / view.ZoomY};
}

}  // namespace

std::optional<MagnifiedView> Magnify(Workspace& w, int image, const PanePosition& at, int factor,
                                     int side) {
  if (!Shows_Image(w, image)) return std::nullopt;
  try {
    return Magnify_Shown(w, image, at, factor, side);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

std::optional<EpipolarEnds> Epipolar_Ends(const Workspace& w, int image) {
  if (!w.SolutionValid || w.CurrentImage < 0 || w.CurrentImage == image) return std::nullopt;
  try {
    const FilmPosition film = Film_In_Boxes(w, w.CurrentImage);
    const Camera camera = Camera_Of(w, w.CurrentImage);
    const double reach = w.options.EpipolarZDepth;
    const auto lower = Image_To_Object_At_Z(camera, w.Solution3D.Z - reach, film);
    const auto upper = Image_To_Object_At_Z(camera, w.Solution3D.Z + reach, film);
    if (!lower || !upper) return std::nullopt;
    return EpipolarEnds{Pane_Of_Point(w, image, *lower), Pane_Of_Point(w, image, *upper)};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace sylvomex
