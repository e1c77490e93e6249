// SPDX-License-Identifier: MIT
#include "commands/solver/batch_orientation.h"

#include <cmath>
#include <string>

#include "imageblock/image_header.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/hourglass.h"
#include "services/kept_file.h"
#include "services/status_line.h"
#include "solver/footprint.h"
#include "solver/pair_points.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kGroundPointFile = "d:\\Ground_points_nothing.txt";
constexpr const char* kFilmPointFile = "d:\\ima_obs_4.CSV";
constexpr const char* kPairFile = "d:\\Stereo_parit.csv";
constexpr const char* kPointFile = "c:\\text2.txt";
constexpr const char* kFlightLineFile = "f:\\lines.txt";
constexpr const char* kFlightFolder = "e:\\lk\\";
constexpr const char* kFootprintFile = "e:\\lk\\InitApprx.txt";
constexpr double kFootprintZ = 140.6;

ListReader List_Of(const Workspace& w, const std::string& name) {
  return ListReader(w.Drives.Locate(name));
}

// holder: the file in which the header's name stands.
Camera Read_Camera(const Workspace& w, const std::string& header_name, const char* holder) {
  ListReader header = Named_In(w, holder, [&] { return List_Of(w, header_name); });
  return Make_Camera(Read_Image_Header(header));
}

// Number of points solved, and the sum of their squared RMSEs.
struct PairTotals {
  int points = 0;
  int pairs = 0;
  double squares = 0;  // square micrometres
};

std::string Point_Line(const GroundPoint& known, const Point3D& solved) {
  std::string line = Plain_Text(known.point_id);
  for (const double value : {solved.X, solved.Y, solved.Z, solved.X - known.position.X,
                             solved.Y - known.position.Y, solved.Z - known.position.Z}) {
    line += "," + Plain_Text(value);
  }
  return line + "\n";
}

std::string Place_Of(const Camera& first, const Camera& second, const GroundPoint& point) {
  return "images " + Plain_Text(first.image_id) + " and " + Plain_Text(second.image_id) +
         ", point " + Plain_Text(point.point_id);
}

IntersectionResult Solve_Point(const Workspace& w, const Camera& first, const Camera& second,
                               const PairObservation& observed) {
  IntersectionSettings limits;
  limits.stop_dx = w.options.IterationStopDX;
  limits.stop_dy = w.options.IterationStopDY;
  limits.stop_dz = w.options.IterationStopDZ;
  try {
    return Intersect_Pair(first, second, observed, limits);
  } catch (const RunTimeError& error) {
    throw error.At(Place_Of(first, second, *observed.point));
  }
}

struct PointTables {
  std::vector<GroundPoint> ground;
  std::vector<FilmPointObservation> film;
};

void Solve_Pair(Workspace& w, const HeaderPair& headers, const PointTables& tables,
                PairTotals& totals, std::string& lines) {
  const Camera first = Read_Camera(w, headers.first, kPairFile);
  const Camera second = Read_Camera(w, headers.second, kPairFile);
  ++totals.pairs;
  for (const PairObservation& observed :
       Observations_Of_Pair(tables.ground, tables.film, first.image_id, second.image_id)) {
    const IntersectionResult result = Solve_Point(w, first, second, observed);
    if (result.singular) {
      Show_With_Cause(w, "Iteration failed, determinant of Normal Matrix is too close to zero !",
                      Place_Of(first, second, *observed.point));
      continue;
    }
    lines += Point_Line(*observed.point, result.point);
    ++totals.points;
    totals.squares += result.rmse_um * result.rmse_um;
  }
}

void Show_Totals(Workspace& w, const PairTotals& totals) {
  std::string text = Plain_Text(std::int32_t{totals.points}) + " points from " +
                     Plain_Text(std::int32_t{totals.pairs}) + " pairs";
  if (totals.points > 0) {
    text += ", RMSE: " + Format(std::sqrt(totals.squares / totals.points), "#.0 um");
  }
  Show_Status(w, text);
}

std::string Footprint_Line(const FlightImage& image, const Footprint& footprint) {
  std::string line = image.header;
  for (const double value :
       {image.line_number, footprint.centre.X, footprint.centre.Y, footprint.centre.Z}) {
    line += "," + Plain_Text(value);
  }
  for (const Point3D& corner : footprint.corners) {
    line += "," + Plain_Text(corner.X) + "," + Plain_Text(corner.Y);
  }
  return line + "\n";
}

std::string Approximation_Of(const Workspace& w, const FlightImage& image) {
  const Camera camera = Read_Camera(w, kFlightFolder + image.header + ".hdr", kFlightLineFile);
  const auto footprint = Footprint_At(camera, image, kFootprintZ);
  if (!footprint) {
    throw RunTimeError(Failure::DivisionByZero,
                       image.header + ": the camera's axis never meets the plane at " +
                           Plain_Text(kFootprintZ) + " m");
  }
  return Footprint_Line(image, *footprint);
}

}  // namespace

void Compute_Points_From_Pairs(Workspace& w) {
  const HourglassGuard hourglass(w);
  const PointTables tables{Read_Ground_Points(List_Of(w, kGroundPointFile)),
                           Read_Film_Points(List_Of(w, kFilmPointFile))};
  PairTotals totals;
  for (const HeaderPair& pair : Read_Header_Pairs(List_Of(w, kPairFile))) {
    With_Appended_Lines(w.Drives.Locate(kPointFile),
                        [&](std::string& lines) { Solve_Pair(w, pair, tables, totals, lines); });
    Look_At_Work();
  }
  Show_Totals(w, totals);
}

void Compute_initial_apprx(Workspace& w) {
  const HourglassGuard hourglass(w);
  const std::vector<FlightImage> images = Read_Flight_Images(List_Of(w, kFlightLineFile));
  With_Text_File(w.Drives.Locate(kFootprintFile), [&](std::string& lines) {
    for (const FlightImage& image : images) {
      lines += Approximation_Of(w, image);
      Look_At_Work();
    }
  });
  Show_Status(w, Plain_Text(static_cast<std::int32_t>(images.size())) + " footprints");
}

}  // namespace sylvomex
