// SPDX-License-Identifier: MIT
// The frames and cameras tables of geographic information systems, CSV.
// Frames: Raster (the file, folders are passed over), CameraID, PerspectiveX, PerspectiveY,
// PerspectiveZ (map units), Omega, Phi, Kappa (degrees; M = M_kappa M_phi M_omega from ground to
// image). Cameras: CameraID, FocalLength, PrincipalX, PrincipalY, PixelSize in micrometres,
// NColumns and NRows where known; the principal point counts right and up from the middle of the
// image. In place of PixelSize A0, A1, A2, B0, B1, B2: film x = A0 + A1 col + A2 row, y = B0 + B1
// col + B2 row in micrometres, (0, 0) the middle of the first pixel. A camera's column may stand in
// the frames table, too, whose value then counts for its frame.
#include <algorithm>
#include <cmath>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

constexpr double kMicrometre = 0.001;  // mm
constexpr int kMostPixels = 10'000'000;

/// What describes the camera of a frame: a value in the frames table goes before that of the
/// cameras table.
class CameraFields {
 public:
  CameraFields(const CsvTable& frames, const TextRow& frame, const CsvTable& cameras,
               const TextRow& camera)
      : frames_(frames), frame_(frame), cameras_(cameras), camera_(camera) {}

  [[nodiscard]] bool Has(std::string_view field) const {
    return frames_.Has(field) || cameras_.Has(field);
  }
  [[nodiscard]] double Number(std::string_view field) const {
    return Is_Framed(field) ? frames_.Number(frame_, field) : cameras_.Number(camera_, field);
  }
  [[nodiscard]] double Number_Or_0(std::string_view field) const {
    const auto number = Is_Framed(field) ? frames_.Optional_Number(frame_, field)
                                         : cameras_.Optional_Number(camera_, field);
    return number.value_or(0);
  }
  [[nodiscard]] int Whole(std::string_view field) const {
    return Is_Framed(field) ? frames_.Whole(frame_, field, 1, kMostPixels)
                            : cameras_.Whole(camera_, field, 1, kMostPixels);
  }
  [[nodiscard]] std::string Text(std::string_view field) const {
    return Is_Framed(field) ? frames_.Optional_Text(frame_, field)
                            : cameras_.Optional_Text(camera_, field);
  }
  [[noreturn]] void Refuse(const std::string& cause) const { cameras_.Refuse(camera_, cause); }

 private:
  [[nodiscard]] bool Is_Framed(std::string_view field) const {
    return !frames_.Optional_Text(frame_, field).empty();
  }

  const CsvTable& frames_;
  const TextRow& frame_;
  const CsvTable& cameras_;
  const TextRow& camera_;
};

void Set_Film_Affine(CameraGiven& camera, const CameraFields& fields, double principal_x,
                     double principal_y) {
  const double a1 = fields.Number("A1");
  const double b2 = fields.Number("B2");
  if (!(a1 > 0 && b2 < 0) || fields.Number("A2") != 0 || fields.Number("B1") != 0) {
    fields.Refuse("the film's axes are not those of the pixels (A1 > 0, B2 < 0, A2 = B1 = 0)");
  }
  camera.pixel_mm = a1 * kMicrometre;
  camera.pixel_y_mm = -b2 * kMicrometre;
  camera.pp_x = (principal_x - fields.Number("A0")) / a1 + 0.5;
  camera.pp_y = (principal_y - fields.Number("B0")) / b2 + 0.5;
}

void Refuse_Other_Distortion(const CameraFields& fields) {
  for (const char* const field : {"Radial", "Tangential"}) {
    if (fields.Text(field).find_first_of("123456789") != std::string::npos) {
      fields.Refuse(std::string(field) +
                    " is not understood; give the lens as k1, k2, k3, p1, p2 in OpenCV's sense");
    }
  }
}

CameraGiven Camera_Of(const CameraFields& fields, bool has_pixel_size) {
  CameraGiven camera;
  if (fields.Has("NColumns")) camera.width = fields.Whole("NColumns");
  if (fields.Has("NRows")) camera.height = fields.Whole("NRows");
  camera.f_mm = fields.Number("FocalLength") * kMicrometre;
  const double principal_x = fields.Number_Or_0("PrincipalX");
  const double principal_y = fields.Number_Or_0("PrincipalY");
  if (has_pixel_size) {
    const double pixel = fields.Number("PixelSize");
    if (!(pixel > 0)) fields.Refuse("PixelSize is not positive");
    camera.pixel_mm = camera.pixel_y_mm = pixel * kMicrometre;
    camera.pp_x = principal_x / pixel;
    camera.pp_y = principal_y / pixel;
  } else {
    Set_Film_Affine(camera, fields, principal_x, principal_y);
  }
  Refuse_Other_Distortion(fields);
  camera.lens = {fields.Number_Or_0("k1"), fields.Number_Or_0("k2"), fields.Number_Or_0("k3"),
                 fields.Number_Or_0("p1"), fields.Number_Or_0("p2")};
  return camera;
}

/// Fields that may tell another convention than the one that is taken, where they say something.
std::vector<std::string> Passed_Over(const CsvTable& frames, const CsvTable& cameras) {
  std::vector<std::string> fields;
  for (const char* const field : {"AngleDirection", "AffineDirection", "FilmCoordinateSystem"}) {
    const auto is_told_in = [field](const CsvTable& table) {
      return std::ranges::any_of(table.Rows(), [&](const TextRow& row) {
        return !table.Optional_Text(row, field).empty();
      });
    };
    if (is_told_in(frames) || is_told_in(cameras)) fields.emplace_back(field);
  }
  return fields;
}

const TextRow& Camera_Row(const CsvTable& frames, const TextRow& frame, const CsvTable& cameras) {
  const auto key = cameras.First_Of({"CameraID", "ObjectID", "OID"});
  if (!frames.Has("CameraID") || !key) {
    if (cameras.Rows().size() == 1) return cameras.Rows().front();
    frames.Refuse(frame, "no CameraID tells which camera of " + cameras.Name() + " took it");
  }
  const std::string wanted = frames.Text(frame, "CameraID");
  for (const TextRow& row : cameras.Rows()) {
    if (cameras.Text(row, *key) == wanted) return row;
  }
  frames.Refuse(frame, "the camera \"" + wanted + "\" is not in " + cameras.Name());
}

}  // namespace

OrientationTable Parse_Frames_Table(const NamedText& text, const NamedText& camera_text) {
  const CsvTable frames(text.text, text.name);
  const bool has_cameras_inside = frames.Has("FocalLength");
  if (camera_text.name.empty() && !has_cameras_inside) {
    throw Refused(text.name + ": the frames table needs its cameras table, by --cameras");
  }
  const CsvTable cameras =
      camera_text.name.empty() ? frames : CsvTable(camera_text.text, camera_text.name);
  const bool has_pixel_size = cameras.Has("PixelSize") || frames.Has("PixelSize");
  OrientationTable parsed;
  parsed.stated.pp_from_corner = !has_pixel_size;
  parsed.passed_over = Passed_Over(frames, cameras);
  for (const TextRow& row : frames.Rows()) {
    PhotoGiven photo;
    photo.line = row.line;
    photo.name = frames.Text(row, "Raster");
    const TextRow& camera = camera_text.name.empty() ? row : Camera_Row(frames, row, cameras);
    photo.camera = Camera_Of({frames, row, cameras, camera}, has_pixel_size);
    photo.position = {frames.Number(row, "PerspectiveX"), frames.Number(row, "PerspectiveY"),
                      frames.Number(row, "PerspectiveZ")};
    photo.numbers = {frames.Number(row, "Omega"), frames.Number(row, "Phi"),
                     frames.Number(row, "Kappa"), 0};
    photo.utc = frames.Optional_Text(row, "utc");
    parsed.photos.push_back(std::move(photo));
  }
  return parsed;
}

}  // namespace sylvomex
