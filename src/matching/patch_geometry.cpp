// SPDX-License-Identifier: MIT
#include "matching/patch_geometry.h"

#include "imageblock/view_window.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kMicrometres = 1e6;  // per metre
constexpr int kSeriesStep = 100;
constexpr int kLargestSide = 10001;

[[noreturn]] void Throw_Zero(const std::string& cause) {
  throw RunTimeError(Failure::DivisionByZero, cause);
}

std::string Image_Name(const ImageRecord& image) { return "image " + Plain_Text(image.ImageId); }

// Converts a row counted upwards from the raw file's last row to one counted from the top.
int From_Top(const ImageRecord& image, int upward_row) {
  return To_Int32(image.SubHeight - 1 - upward_row);
}

}  // namespace

std::int16_t Pixel_Side_Micrometres(const ImageRecord& image, const Report& report) {
  const double determinant = image.AffineB2 * image.AffineA1 - image.AffineB1 * image.AffineA2;
  if (determinant == 0) Throw_Zero(Image_Name(image) + ": the affine has no area");
  return To_Int16(Safe_Sqrt(1 / determinant, report) * kMicrometres);
}

double Ground_Pixel_Side(const ImageRecord& image, std::int16_t pixel_side, double Z) {
  if (image.PrincipalDistance == 0) Throw_Zero(Image_Name(image) + ": PrincipalDistance is 0");
  return (image.Z0 - Z) * pixel_side / (kMicrometres * image.PrincipalDistance);
}

std::optional<int> Patch_Side(double patch_size, double ground_side) {
  if (ground_side == 0) Throw_Zero("a pixel has no size on the ground");
  const double wanted = Round_Half_Even(patch_size / ground_side);
  for (int side = 1; side <= kLargestSide; side += kSeriesStep) {
    if (side >= wanted) return side;
  }
  return std::nullopt;
}

PatchPlace Place_Patch(const ImageRecord& image, const Camera& camera, const Point3D& centre,
                       int side) {
  const auto [col, row] = Object_To_Pixel(camera, centre);
  const int centre_col = To_Int16(col - image.SubColOrigin);
  const double last_row = image.FullHeight - 1 - (image.SubHeight - 1 + image.SubRowOrigin);
  const int centre_row_upward = To_Int16(row - last_row);
  const ViewWindow fitted = Compute_View_Window(image.SubWidth, image.SubHeight, centre_col,
                                                centre_row_upward, side, side);
  const RawWindow window{fitted.first_col, fitted.last_col, From_Top(image, fitted.last_row),
                         From_Top(image, fitted.first_row)};
  return {window, fitted.fits};
}

ImageRecord Correlation_Record(const ImageRecord& image, const RawWindow& window,
                               const std::string& raw_file_name) {
  ImageRecord record;
  record.SubWidth = window.Width();
  record.SubHeight = window.Height();
  record.RawFileName = raw_file_name;
  record.StartCol = record.StartRow = 1;
  record.SubColOrigin = window.first_col + image.SubColOrigin;
  record.SubRowOrigin = image.FullHeight - 1 - image.SubRowOrigin - window.top_row;
  record.FullWidth = image.FullWidth;
  record.FullHeight = image.FullHeight;
  record.PrincipalDistance = image.PrincipalDistance;
  record.CameraReserved = image.CameraReserved;
  record.AffineA1 = image.AffineA1;
  record.AffineA2 = image.AffineA2;
  record.AffineA0 = image.AffineA0;
  record.AffineB1 = image.AffineB1;
  record.AffineB2 = image.AffineB2;
  record.AffineB0 = image.AffineB0;
  record.Omega = image.Omega;
  record.Phi = image.Phi;
  record.Kappa = image.Kappa;
  record.X0 = image.X0;
  record.Y0 = image.Y0;
  record.Z0 = image.Z0;
  return record;
}

}  // namespace sylvomex
