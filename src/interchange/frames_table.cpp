// SPDX-License-Identifier: MIT
// The frames and cameras tables of geographic information systems, CSV.
// Frames: Raster (the file, folders are passed over), CameraID, PerspectiveX, PerspectiveY,
// PerspectiveZ (map units), Omega, Phi, Kappa (degrees; M = M_kappa M_phi M_omega from ground to
// image). Cameras: CameraID, FocalLength, PrincipalX, PrincipalY, PixelSize in micrometres,
// NColumns and NRows where known; the principal point counts right and up from the middle of the
// image. In place of PixelSize A0, A1, A2, B0, B1, B2: film x = A0 + A1 col + A2 row, y = B0 + B1
// col + B2 row in micrometres, (0, 0) the middle of the first pixel.
#include <cmath>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

constexpr double kMicrometre = 0.001;  // mm
constexpr int kMostPixels = 10'000'000;

void Set_Film_Affine(CameraGiven& camera, const CsvTable& table, const TextRow& row,
                     double principal_x, double principal_y) {
  const double a1 = table.Number(row, "A1");
  const double b2 = table.Number(row, "B2");
  if (!(a1 > 0 && b2 < 0) || table.Number(row, "A2") != 0 || table.Number(row, "B1") != 0) {
    table.Refuse(row, "the film's axes are not those of the pixels (A1 > 0, B2 < 0, A2 = B1 = 0)");
  }
  camera.pixel_mm = a1 * kMicrometre;
  camera.pixel_y_mm = -b2 * kMicrometre;
  camera.pp_x = (principal_x - table.Number(row, "A0")) / a1 + 0.5;
  camera.pp_y = (principal_y - table.Number(row, "B0")) / b2 + 0.5;
}

void Refuse_Other_Distortion(const CsvTable& table, const TextRow& row) {
  for (const char* const column : {"Radial", "Tangential"}) {
    if (table.Optional_Text(row, column).find_first_of("123456789") != std::string::npos) {
      table.Refuse(row, std::string(column) +
                            " is not understood; give the lens as k1, k2, k3, p1, p2 in OpenCV's "
                            "sense");
    }
  }
}

CameraGiven Camera_Of_Row(const CsvTable& table, const TextRow& row, bool has_pixel_size) {
  CameraGiven camera;
  if (table.Has("NColumns")) camera.width = table.Whole(row, "NColumns", 1, kMostPixels);
  if (table.Has("NRows")) camera.height = table.Whole(row, "NRows", 1, kMostPixels);
  camera.f_mm = table.Number(row, "FocalLength") * kMicrometre;
  const double principal_x = table.Optional_Number(row, "PrincipalX").value_or(0);
  const double principal_y = table.Optional_Number(row, "PrincipalY").value_or(0);
  if (has_pixel_size) {
    const double pixel = table.Number(row, "PixelSize");
    if (!(pixel > 0)) table.Refuse(row, "PixelSize is not positive");
    camera.pixel_mm = camera.pixel_y_mm = pixel * kMicrometre;
    camera.pp_x = principal_x / pixel;
    camera.pp_y = principal_y / pixel;
  } else {
    Set_Film_Affine(camera, table, row, principal_x, principal_y);
  }
  Refuse_Other_Distortion(table, row);
  camera.lens = {
      table.Optional_Number(row, "k1").value_or(0), table.Optional_Number(row, "k2").value_or(0),
      table.Optional_Number(row, "k3").value_or(0), table.Optional_Number(row, "p1").value_or(0),
      table.Optional_Number(row, "p2").value_or(0)};
  return camera;
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
  const bool has_pixel_size = cameras.Has("PixelSize");
  OrientationTable parsed;
  parsed.stated.pp_from_corner = !has_pixel_size;
  for (const TextRow& row : frames.Rows()) {
    PhotoGiven photo;
    photo.line = row.line;
    photo.name = frames.Text(row, "Raster");
    photo.camera = Camera_Of_Row(
        cameras, camera_text.name.empty() ? row : Camera_Row(frames, row, cameras), has_pixel_size);
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
