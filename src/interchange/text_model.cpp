// SPDX-License-Identifier: MIT
// Text models of structure-from-motion packages. cameras.txt: CAMERA_ID, MODEL, WIDTH, HEIGHT,
// parameters in pixels, the principal point from the outer corner of the first pixel, right and
// down. images.txt: IMAGE_ID, QW, QX, QY, QZ, TX, TY, TZ, CAMERA_ID, NAME, each followed by a line
// of points that may be empty; X_camera = R(q) X + t with x right, y down, z along the view.
#include <algorithm>
#include <map>
#include <sstream>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

constexpr double kNominalPixel = 0.005;  // mm
constexpr int kMostPixels = 10'000'000;

/// What a camera model's parameters are, in their order.
struct Model {
  const char* name;
  std::vector<std::string> parameters;
};

const std::vector<Model>& Models() {
  static const std::vector<Model> kModels = {
      {"SIMPLE_PINHOLE", {"f", "cx", "cy"}},
      {"PINHOLE", {"fx", "fy", "cx", "cy"}},
      {"SIMPLE_RADIAL", {"f", "cx", "cy", "k1"}},
      {"RADIAL", {"f", "cx", "cy", "k1", "k2"}},
      {"OPENCV", {"fx", "fy", "cx", "cy", "k1", "k2", "p1", "p2"}},
      {"FULL_OPENCV", {"fx", "fy", "cx", "cy", "k1", "k2", "p1", "p2", "k3", "k4", "k5", "k6"}}};
  return kModels;
}

struct Line {
  std::string text;
  int number = 0;
};

/// All lines but comments; empty lines stay, they may be lines of points.
std::vector<Line> Lines_Of(const NamedText& text) {
  if (text.text.find('\0') != std::string::npos) throw Refused(text.name + ": the file is no text");
  std::vector<Line> lines;
  std::istringstream stream(text.text);
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.starts_with('#')) lines.push_back({line, number});
  }
  return lines;
}

bool Is_Empty(const Line& line) { return line.text.find_first_not_of(" \t") == std::string::npos; }

[[noreturn]] void Refuse(const std::string& file, int line, const std::string& cause) {
  throw Refused(file + ", line " + std::to_string(line) + ": " + cause);
}

double Number(std::istream& words, const std::string& what, const std::string& file, int line) {
  std::string word;
  words >> word;
  const std::optional<double> value = Finite_Number(word);
  if (!value) Refuse(file, line, what + " is \"" + word + "\", no number");
  return *value;
}

CameraGiven Camera_Of(const std::map<std::string, double>& p, const std::string& file, int line) {
  const auto value = [&](const char* name) {
    const auto found = p.find(name);
    return found == p.end() ? 0 : found->second;
  };
  if (value("k4") != 0 || value("k5") != 0 || value("k6") != 0) {
    Refuse(file, line, "k4, k5 and k6 are not understood");
  }
  const double fx = p.contains("f") ? value("f") : value("fx");
  const double fy = p.contains("f") ? value("f") : value("fy");
  if (!(fx > 0 && fy > 0)) Refuse(file, line, "the focal length is not positive");
  CameraGiven camera;
  camera.pixel_mm = kNominalPixel;
  camera.f_mm = fx * kNominalPixel;
  camera.pixel_y_mm = camera.f_mm / fy;
  camera.pp_x = value("cx");
  camera.pp_y = value("cy");
  camera.lens = {value("k1"), value("k2"), value("k3"), value("p1"), value("p2")};
  return camera;
}

int Side(double value, const std::string& file, int line) {
  if (!(value >= 1 && value <= kMostPixels)) Refuse(file, line, "the image size is not positive");
  return static_cast<int>(value);
}

std::map<std::string, CameraGiven> Cameras_Of(const NamedText& text) {
  std::map<std::string, CameraGiven> cameras;
  for (const Line& line : Lines_Of(text)) {
    if (Is_Empty(line)) continue;
    std::istringstream words(line.text);
    std::string id;
    std::string name;
    words >> id >> name;
    const auto model = std::find_if(Models().begin(), Models().end(),
                                    [&](const Model& candidate) { return name == candidate.name; });
    if (model == Models().end()) {
      Refuse(text.name, line.number, "the camera model \"" + name + "\" is not understood");
    }
    const double width = Number(words, "WIDTH", text.name, line.number);
    const double height = Number(words, "HEIGHT", text.name, line.number);
    std::map<std::string, double> parameters;
    for (const std::string& parameter : model->parameters) {
      parameters[parameter] = Number(words, parameter, text.name, line.number);
    }
    CameraGiven camera = Camera_Of(parameters, text.name, line.number);
    camera.width = Side(width, text.name, line.number);
    camera.height = Side(height, text.name, line.number);
    if (!cameras.emplace(id, camera).second) {
      Refuse(text.name, line.number, "the camera " + id + " stands twice");
    }
  }
  return cameras;
}

PhotoGiven Photo_Of(const Line& line, const std::map<std::string, CameraGiven>& cameras,
                    const std::string& file) {
  std::istringstream words(line.text);
  PhotoGiven photo;
  photo.line = line.number;
  photo.rotation = RotationGiven::Quaternion;
  Number(words, "IMAGE_ID", file, line.number);
  double length = 0;
  for (double& q : photo.numbers) {
    q = Number(words, "the quaternion", file, line.number);
    length += q * q;
  }
  if (!(length > 1e-12 && length < 1e12)) Refuse(file, line.number, "the quaternion has no length");
  photo.position.X = Number(words, "TX", file, line.number);
  photo.position.Y = Number(words, "TY", file, line.number);
  photo.position.Z = Number(words, "TZ", file, line.number);
  std::string camera;
  words >> camera >> std::ws;
  std::getline(words, photo.name);
  const auto found = cameras.find(camera);
  if (found == cameras.end()) {
    Refuse(file, line.number, "the camera " + camera + " is not in the cameras file");
  }
  photo.camera = found->second;
  return photo;
}

}  // namespace

OrientationTable Parse_Text_Model(const NamedText& text, const NamedText& camera_text) {
  if (camera_text.name.empty()) {
    throw Refused(text.name + ": no cameras.txt lies beside it; give the file by --cameras");
  }
  const auto cameras = Cameras_Of(camera_text);
  OrientationTable parsed;
  parsed.stated.y_down = true;
  parsed.stated.position_is_translation = true;
  parsed.stated.pp_from_corner = true;
  bool is_points = false;
  for (const Line& line : Lines_Of(text)) {
    if (!is_points && Is_Empty(line)) continue;
    if (!is_points) parsed.photos.push_back(Photo_Of(line, cameras, text.name));
    is_points = !is_points;
  }
  return parsed;
}

}  // namespace sylvomex
