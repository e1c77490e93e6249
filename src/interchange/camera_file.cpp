// SPDX-License-Identifier: MIT
// The camera of angle tables, in a file of its own:
// - calibration XML (<calibration> with width, height, f, cx, cy, k1 ... in pixels): cx, cy from
// the
//   middle of the image, right and down; p1 and p2 in the order in which p1 multiplies r^2 + 2 x^2;
//   b1 widens the pixels of a row, b2 must be 0;
// - OpenCV's XML (camera_matrix, distortion_coefficients): cx, cy are pixels counted from the
// middle
//   of the first pixel;
// - CSV with the columns of our own table that describe a camera, one row.
#include <cpl_minixml.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "interchange/coordinate_system.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

constexpr double kNominalPixel = 0.005;  // mm, of cameras that are known in pixels only
constexpr int kMostPixels = 10'000'000;

using XmlTree = std::unique_ptr<CPLXMLNode, decltype(&CPLDestroyXMLNode)>;

double Xml_Number(const CPLXMLNode* node, const char* path, const std::string& file) {
  const char* const text = CPLGetXMLValue(node, path, nullptr);
  const std::optional<double> value = Finite_Number(text == nullptr ? "" : text);
  if (!value) throw Refused(file + ": <" + path + "> is missing or no number");
  return *value;
}

double Xml_Number_Or_0(const CPLXMLNode* node, const char* path, const std::string& file) {
  return CPLGetXMLValue(node, path, nullptr) == nullptr ? 0 : Xml_Number(node, path, file);
}

int Side(double value, const std::string& file) {
  if (!(value >= 1 && value <= kMostPixels) || value != std::floor(value)) {
    throw Refused(file + ": the image size is not a whole number of pixels");
  }
  return static_cast<int>(value);
}

void Set_Focal_Pixels(CameraGiven& camera, double fx, double fy, const std::string& file) {
  if (!(fx > 0 && fy > 0)) throw Refused(file + ": the focal length is not positive");
  camera.pixel_mm = kNominalPixel;
  camera.f_mm = fx * kNominalPixel;
  camera.pixel_y_mm = camera.f_mm / fy;
}

CameraGiven Calibration_Xml(const CPLXMLNode* node, const std::string& file) {
  CameraGiven camera;
  camera.width = Side(Xml_Number(node, "width", file), file);
  camera.height = Side(Xml_Number(node, "height", file), file);
  const double fy = Xml_Number(node, "f", file);
  Set_Focal_Pixels(camera, fy + Xml_Number_Or_0(node, "b1", file), fy, file);
  if (Xml_Number_Or_0(node, "b2", file) != 0 || Xml_Number_Or_0(node, "k4", file) != 0) {
    throw Refused(file + ": the camera has skewed pixels (b2) or a fourth radial term (k4)");
  }
  camera.pp_x = Xml_Number_Or_0(node, "cx", file);
  camera.pp_y = Xml_Number_Or_0(node, "cy", file);
  camera.lens = {Xml_Number_Or_0(node, "k1", file), Xml_Number_Or_0(node, "k2", file),
                 Xml_Number_Or_0(node, "k3", file), Xml_Number_Or_0(node, "p2", file),
                 Xml_Number_Or_0(node, "p1", file)};
  return camera;
}

std::vector<double> Matrix_Numbers(const CPLXMLNode* root, const char* path, std::size_t least,
                                   const std::string& file) {
  const std::string text = CPLGetXMLValue(root, path, "");
  std::vector<double> numbers;
  for (const TextRow& row : Split_Rows(text, file)) {
    for (const std::string& cell : row.cells) {
      const std::optional<double> value = Finite_Number(cell);
      if (!value) throw Refused(file + ": <" + path + "> holds \"" + cell + "\", no number");
      numbers.push_back(*value);
    }
  }
  if (numbers.size() < least) throw Refused(file + ": <" + path + "> is missing or too short");
  return numbers;
}

CameraGiven OpenCv_Xml(const CPLXMLNode* root, const std::string& file) {
  CameraGiven camera;
  camera.width = Side(Xml_Number(root, "image_width", file), file);
  camera.height = Side(Xml_Number(root, "image_height", file), file);
  const auto matrix = Matrix_Numbers(root, "camera_matrix.data", 9, file);
  Set_Focal_Pixels(camera, matrix[0], matrix[4], file);
  camera.pp_x = matrix[2] + 0.5 - camera.width / 2.0;
  camera.pp_y = matrix[5] + 0.5 - camera.height / 2.0;
  const char* const kDistortion = "distortion_coefficients.data";
  std::vector<double> d = Matrix_Numbers(root, kDistortion, 4, file);
  d.resize(std::max<std::size_t>(d.size(), 5));
  if (std::any_of(d.begin() + 5, d.end(), [](double further) { return further != 0; })) {
    throw Refused(file + ": only k1, k2, p1, p2, k3 are understood");
  }
  camera.lens = {d[0], d[1], d[4], d[2], d[3]};
  return camera;
}

CameraGiven Camera_Csv(const NamedText& cameras) {
  const CsvTable table(cameras.text, cameras.name);
  if (table.Rows().size() != 1) {
    throw Refused(cameras.name + ": the file must describe one camera, in one row");
  }
  const TextRow& row = table.Rows().front();
  CameraGiven camera;
  camera.width = table.Whole(row, "width", 1, kMostPixels);
  camera.height = table.Whole(row, "height", 1, kMostPixels);
  camera.f_mm = table.Number(row, "f_mm");
  camera.pixel_mm = camera.pixel_y_mm = table.Number(row, "pixel_mm");
  if (!(camera.pixel_mm > 0)) table.Refuse(row, "pixel_mm is not positive");
  camera.pp_x = table.Optional_Number(row, "x0_mm").value_or(0) / camera.pixel_mm;
  camera.pp_y = table.Optional_Number(row, "y0_mm").value_or(0) / camera.pixel_mm;
  camera.lens = {
      table.Optional_Number(row, "k1").value_or(0), table.Optional_Number(row, "k2").value_or(0),
      table.Optional_Number(row, "k3").value_or(0), table.Optional_Number(row, "p1").value_or(0),
      table.Optional_Number(row, "p2").value_or(0)};
  return camera;
}

}  // namespace

CameraGiven Parse_Camera_File(const NamedText& cameras, Convention& stated) {
  if (cameras.text.find('<') == std::string::npos) return Camera_Csv(cameras);
  Start_Gdal();
  const XmlTree tree(CPLParseXMLString(cameras.text.c_str()), &CPLDestroyXMLNode);
  if (tree == nullptr) {
    throw Refused(cameras.name + ": " + Gdal_Message("the file is neither XML nor CSV"));
  }
  stated.pp_y_down = true;
  if (const CPLXMLNode* node = CPLSearchXMLNode(tree.get(), "=opencv_storage"); node != nullptr) {
    return OpenCv_Xml(node, cameras.name);
  }
  const CPLXMLNode* const node = CPLSearchXMLNode(tree.get(), "=calibration");
  if (node == nullptr) throw Refused(cameras.name + ": no <calibration> stands in the file");
  return Calibration_Xml(node, cameras.name);
}

}  // namespace sylvomex
