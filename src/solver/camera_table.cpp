// SPDX-License-Identifier: MIT
#include "solver/camera_table.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "closedlib/counted_loop.h"
#include "platform/name_below.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

// The items of one line in order; when the line ends too early the error names the missing item.
class CameraLine {
 public:
  CameraLine(const std::string& line, const FilePath& file, int line_number)
      : list_(line, file, line_number),
        line_place_(file.name + ", line " + std::to_string(line_number)),
        native_(file.native) {}

  std::int32_t Integer() {
    Require_Item();
    return list_.Read_Int32();
  }
  double Real() {
    Require_Item();
    return list_.Read_Double();
  }
  std::string Text() {
    Require_Item();
    return list_.Read_Text_To_Comma();
  }
  // The path of a file, or a part of its name.
  std::string Name() {
    std::string name = Text();
    if (!name.empty()) return name;
    throw RunTimeError(Failure::BadContent, list_.Where() + ": an empty text names no file",
                       native_);
  }
  // The names of point-in-image files are made of these two items: none may lead out of their
  // folder. At fault is the first part when it leads out by itself.
  void Require_Names_Below(const std::string& start, const std::string& end) const {
    const bool starts_below = Stays_Below(start + "_");
    if (starts_below && Stays_Below(start + "_" + end)) return;
    throw RunTimeError(Failure::BadContent,
                       line_place_ + (starts_below ? ", item 10: " : ", item 12: ") +
                           Quoted_For_Message(starts_below ? end : start) +
                           " leads out of the folder of the point-in-image files",
                       native_);
  }

  // Spreadsheets write empty trailing items.
  void Require_End() {
    while (!list_.At_End()) {
      if (list_.Read_Text_To_Comma().empty()) continue;
      throw RunTimeError(Failure::BadContent, list_.Where() + ": 12 items are wanted on a line",
                         native_);
    }
  }

 private:
  void Require_Item() {
    if (!list_.At_End()) return;
    throw RunTimeError(Failure::BadContent,
                       line_place_ + ", item " + std::to_string(list_.Item() + 1) +
                           ": the line ends here, 12 items are wanted",
                       native_);
  }

  ListReader list_;
  std::string line_place_;
  std::filesystem::path native_;
};

TableCamera Read_Camera(CameraLine& line) {
  TableCamera camera;
  camera.identity = line.Integer();
  line.Text();  // not used
  for (double* value :
       {&camera.c, &camera.omega, &camera.phi, &camera.kappa, &camera.X0, &camera.Y0, &camera.Z0}) {
    *value = line.Real();
  }
  camera.name_end = line.Name();
  camera.header = line.Name();
  camera.name_start = line.Name();
  line.Require_End();
  line.Require_Names_Below(camera.name_start, camera.name_end);
  return camera;
}

struct FrameLimits {
  double x = 0;  // half size, metres from the principal point; itself outside
  double y = 0;
};

FrameLimits Aerial_Frame(double c) {
  if (c > 0.204 && c < 0.205) return {0.09, 0.09};
  if (c > 0.104 && c < 0.106) return {0.05175, 0.03375};
  return {0.115, 0.115};
}

constexpr FrameLimits kTerrestrialFrame{0.002692, 0.003589};

bool Is_Terrestrial(const TableCamera& camera) { return camera.c > 0.006 && camera.c < 0.008; }

// False for a point in the plane through the projection centre that is parallel to the frame. With
// a camera constant of 0 every point is seen; an overflow of the projection counts as not seen.
bool Falls_On_Frame(const Camera& camera, const Point3D& point, const FrameLimits& limits) {
  const auto [r, s, q] = To_Camera_Axes(camera, point);
  if (q == 0) return false;
  const double x = -camera.c * r / q;
  const double y = -camera.c * s / q;
  return std::abs(x) < limits.x && std::abs(y) < limits.y;
}

Camera Camera_Of(const TableCamera& line) {
  Camera camera;
  camera.image_id = line.identity;
  camera.c = line.c;
  camera.centre = {line.X0, line.Y0, line.Z0};
  camera.m = Build_Rotation_Matrix(line.omega, line.phi, line.kappa);
  return camera;
}

}  // namespace

CameraTableReader::CameraTableReader(const FilePath& file) : file_(file), lines_(file) {}

CameraTableReader::CameraTableReader(std::string content, FilePath file)
    : file_(std::move(file)), lines_(std::move(content), file_.name) {}

std::optional<TableCamera> CameraTableReader::Next() {
  while (!lines_.At_End()) {
    const int line_number = lines_.Line();
    const std::string text = lines_.Read_Line();
    if (Without_Blanks_Around(text).empty()) continue;
    CameraLine line(text, file_, line_number);
    TableCamera camera = Read_Camera(line);
    camera.line = line_number;
    return camera;
  }
  return std::nullopt;
}

bool Sees_Point(const TableCamera& camera, const Point3D& point) {
  return Falls_On_Frame(Camera_Of(camera), point, Aerial_Frame(camera.c));
}

bool Sees_Point_On_Own_Frame(const TableCamera& camera, const Point3D& point) {
  if (!Is_Terrestrial(camera)) return Sees_Point(camera, point);
  return Falls_On_Frame(Camera_Of(camera), point, kTerrestrialFrame);
}

bool Sees_Ring(const TableCamera& camera, const Point3D& point) {
  if (!Is_Terrestrial(camera)) return false;
  const Camera terrestrial = Camera_Of(camera);
  const std::vector<Point3D> ring = Ring_Around(point);
  return std::all_of(ring.begin(), ring.end(), [&](const Point3D& at) {
    return Falls_On_Frame(terrestrial, at, kTerrestrialFrame);
  });
}

std::vector<Point3D> Ring_Around(const Point3D& centre) {
  constexpr double kRadius = 0.19 / 2;  // metres
  constexpr double kStep = 0.3;         // radians
  const int points = Loop_Passes(-std::numbers::pi, std::numbers::pi, kStep);
  std::vector<Point3D> ring;
  for (int i = 0; i < points; ++i) {
    const double a = -std::numbers::pi + i * kStep;
    ring.push_back({centre.X + kRadius * std::cos(a), centre.Y + kRadius * std::sin(a), centre.Z});
  }
  return ring;
}

}  // namespace sylvomex
