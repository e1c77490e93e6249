// SPDX-License-Identifier: MIT
// The input is a node file, a zero byte, and a triangle file. Lookups must match the linear
// searches over the triangles; the model is also rasterized.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "heightmodels/tin_lookup.h"
#include "heightmodels/tin_raster.h"
#include "heightmodels/tin_support.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

namespace {

using sylvomex::TinModel;

void Require(bool truth) {
  if (!truth) __builtin_trap();
}

void Ask(const TinModel& model, double X, double Y) {
  Require(First_Position(model, X, Y) == First_By_Plain_Walk(model, X, Y));
  Require(Lowest_Number(model, X, Y) == Lowest_By_Plain_Walk(model, X, Y));
  std::int32_t hint = 0;
  Tin_Elevation(model, X, Y, hint);
  Tin_Chm_Elevation(model, X, Y, hint);
}

void Look_Around(const TinModel& model) {
  constexpr std::size_t kAsked = 30;
  for (std::size_t i = 0; i < std::min(kAsked, model.Triangles.size()); ++i) {
    const sylvomex::TinTriangle& t = model.Triangles[i];
    for (const sylvomex::MapPoint& p : t.Corners) Ask(model, p.X, p.Y);
    Ask(model, (t.X1 + t.X2) / 2, (t.Y1 + t.Y2) / 2);
    Ask(model, t.X1 / 3 + t.X2 / 3 + t.X3 / 3, t.Y1 / 3 + t.Y2 / 3 + t.Y3 / 3);
  }
  Ask(model, std::numeric_limits<double>::infinity(), 0);
  Ask(model, 0, std::numeric_limits<double>::quiet_NaN());
}

void Rasterize(const TinModel& model) {
  constexpr double kLargest = 1000;  // metres, for speed
  if (!(model.TileMaxX - model.TileMinX <= kLargest)) return;
  if (!(model.TileMaxY - model.TileMinY <= kLargest)) return;
  sylvomex::TinRaster raster = Make_Tin_Raster(model);
  for (const sylvomex::TinTriangle& t : model.Triangles) Rasterize_Triangle(t, raster);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t* const nodes_end = std::find(data, data + size, std::uint8_t{0});
  const std::uint8_t* const triangles = nodes_end == data + size ? nodes_end : nodes_end + 1;
  const sylvomex::MemoryFile node_file(std::span(data, nodes_end));
  const sylvomex::MemoryFile triangle_file(std::span(triangles, data + size));
  try {
    TinModel model;
    Read_Tin_Nodes(node_file.File(), 0, model);
    Read_Tin_Triangles(triangle_file.File(), model, [](std::string_view) {});
    Index_Tin(model, [](std::string_view) {});
    Look_Around(model);
    Rasterize(model);
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
