// SPDX-License-Identifier: MIT
#include "matching/search_mesh.h"

#include <cmath>
#include <string>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kEndMargin = 0.001;  // metres

struct MeshColumn {
  double X = 0, Y = 0;
  double bottom = 0, top = 0;
};

/// About how many steps start, start + step, ... there are up to end; 0 when end lies below start.
double Estimated_Steps(double start, double end, double step) {
  if (!(end >= start)) return 0;
  return std::floor((end - start) / step) + 1;
}

/// Visits start, start + step, ... up to end, each the sum of the one before and the step.
template <class Visit>
void For_Each_Step(double start, double end, double step, const Visit& visit) {
  for (double at = start; at <= end; at += step) {
    visit(at);
    if (at + step > at) continue;
    throw RunTimeError(Failure::BadContent, "the mesh spacing " + Plain_Text(step) +
                                                " is too small beside " + Plain_Text(at));
  }
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
  column.top = ground + settings.top_factor * (canopy(column.X, column.Y) - ground);
  column.bottom = ground + settings.low_factor * (column.top - ground);
  return column;
}

template <class Visit>
void Visit_Columns(const MeshSettings& settings, const HeightLookup& terrain,
                   const HeightLookup& canopy, Visit&& visit) {
  const double end_u = settings.side_X / 2 + kEndMargin, end_v = settings.side_Y / 2 + kEndMargin;
  const double first_u = -settings.side_X / 2, first_v = -settings.side_Y / 2;
  Require_Room(
      Estimated_Steps(first_u, end_u, settings.dx) * Estimated_Steps(first_v, end_v, settings.dy),
      "columns");
  For_Each_Step(first_u, end_u, settings.dx, [&](double u) {
    For_Each_Step(first_v, end_v, settings.dy,
                  [&](double v) { visit(Column_At(settings, u, v, terrain, canopy)); });
  });
}

}  // namespace

MeshTable Build_Mesh(const MeshSettings& settings, const HeightLookup& terrain,
                     const HeightLookup& canopy) {
  for (const double spacing : {settings.dx, settings.dy, settings.dz}) Require_Spacing(spacing);
  double count = 0;
  Visit_Columns(settings, terrain, canopy, [&](const MeshColumn& column) {
    count += Estimated_Steps(column.bottom, column.top, settings.dz);
  });
  Require_Room(count, "points");
  MeshTable mesh;
  mesh.reserve(static_cast<std::size_t>(count));
  Visit_Columns(settings, terrain, canopy, [&](const MeshColumn& column) {
    For_Each_Step(column.bottom, column.top, settings.dz, [&](double Z) {
      mesh.push_back({column.X, column.Y, Z});
    });
  });
  return mesh;
}

}  // namespace sylvomex
