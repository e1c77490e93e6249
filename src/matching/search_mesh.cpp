// SPDX-License-Identifier: MIT
#include "matching/search_mesh.h"

#include <cmath>
#include <string>

#include "closedlib/counted_loop.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr double kEndMargin = 0.001;  // metres

struct MeshColumn {
  double X = 0, Y = 0;
  double bottom = 0;
  double points = 0;  // an integer
};

// Number of steps start, start + step, ... up to end; 0 when end lies below start.
double Count_Steps(double start, double end, double step) {
  return end >= start ? Loop_Steps(start, end, step) : 0;
}

void Require_Spacing(double spacing) {
  if (spacing > 0) return;
  throw RunTimeError(Failure::BadContent,
                     "the mesh spacing is " + Plain_Text(spacing) + ", it must be above 0");
}

void Require_Room(double count, const char* what) {
  if (count <= kMostMeshPoints) return;
  throw RunTimeError(Failure::OutOfMemory, "a mesh of " + Plain_Text(count) + " " + what +
                                               ", at most " + Plain_Text(kMostMeshPoints) + " fit");
}

MeshColumn Column_At(const MeshSettings& settings, double u, double v, const HeightLookup& terrain,
                     const HeightLookup& canopy) {
  const double cos_q = std::cos(settings.rotation), sin_q = std::sin(settings.rotation);
  MeshColumn column;
  column.X = u * cos_q - v * sin_q + settings.plot_X;
  column.Y = v * cos_q + u * sin_q + settings.plot_Y;
  const double ground = terrain(column.X, column.Y);
  const double top = ground + settings.top_factor * (canopy(column.X, column.Y) - ground);
  column.bottom = ground + settings.low_factor * (top - ground);
  column.points = Count_Steps(column.bottom, top, settings.dz);
  return column;
}

template <class Visit>
void Visit_Columns(const MeshSettings& settings, const HeightLookup& terrain,
                   const HeightLookup& canopy, Visit&& visit) {
  const double first_u = -settings.side_X / 2, first_v = -settings.side_Y / 2;
  const double count_u = Count_Steps(first_u, settings.side_X / 2 + kEndMargin, settings.dx);
  const double count_v = Count_Steps(first_v, settings.side_Y / 2 + kEndMargin, settings.dy);
  Require_Room(count_u * count_v, "columns");
  if (count_u * count_v == 0) return;
  const auto steps_u = static_cast<long>(count_u), steps_v = static_cast<long>(count_v);
  WorkMeter meter(count_u);
  for (long i = 0; i < steps_u; ++i) {
    const double u = first_u + static_cast<double>(i) * settings.dx;
    for (long j = 0; j < steps_v; ++j) {
      visit(
          Column_At(settings, u, first_v + static_cast<double>(j) * settings.dy, terrain, canopy));
    }
    meter.Step();
  }
}

}  // namespace

MeshTable Build_Mesh(const MeshSettings& settings, const HeightLookup& terrain,
                     const HeightLookup& canopy) {
  for (const double spacing : {settings.dx, settings.dy, settings.dz}) Require_Spacing(spacing);
  WorkMeter passes(2);
  double count = 0;
  Visit_Columns(settings, terrain, canopy,
                [&count](const MeshColumn& column) { count += column.points; });
  Require_Room(count, "points");
  passes.Step();
  MeshTable mesh;
  mesh.reserve(static_cast<std::size_t>(count));
  Visit_Columns(settings, terrain, canopy, [&](const MeshColumn& column) {
    const auto steps = static_cast<long>(column.points);
    for (long k = 0; k < steps; ++k) {
      mesh.push_back({column.X, column.Y, column.bottom + static_cast<double>(k) * settings.dz});
    }
  });
  return mesh;
}

}  // namespace sylvomex
