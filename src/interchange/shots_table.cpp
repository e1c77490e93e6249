// SPDX-License-Identifier: MIT
// Reports with shots.geojson and cameras.json. A shot's properties: filename, camera, rotation
// (axis times radians, X_camera = R (X - centre), x right, y down, z along the view), translation
// (the centre in map coordinates), capture_time (seconds since 1970, UTC, 0 where unknown); its
// geometry is the centre in degrees of WGS 84 and metres. A camera's lengths are divided by the
// longer side of the image, the principal point counts right and down from its middle.
#include <cmath>
#include <ctime>
#include <memory>
#include <nlohmann/json.hpp>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

using nlohmann::json;

constexpr double kNominalPixel = 0.005;  // mm
constexpr int kMostPixels = 10'000'000;
constexpr double kNear = 20;  // metres

json Parsed(const NamedText& text) try {
  return json::parse(text.text);
} catch (const json::exception& error) {
  throw Refused(text.name + ": " + error.what());
}

double Number_Or(const json& object, const char* key, double otherwise) {
  const auto found = object.find(key);
  return found != object.end() && found->is_number() ? found->get<double>() : otherwise;
}

/// Another lens than those with k1 to p2 is refused.
void Require_Known_Projection(const json& camera, const std::string& where) {
  const std::string kind = camera.value("projection_type", std::string("perspective"));
  for (const char* const known : {"perspective", "brown", "simple_radial", "radial"}) {
    if (kind == known) return;
  }
  throw Refused(where + ": the projection \"" + kind + "\" is not understood");
}

CameraGiven Camera_Of(const json& camera, const std::string& where) {
  if (!camera.is_object()) throw Refused(where + ": no camera is described");
  Require_Known_Projection(camera, where);
  const double width = Number_Or(camera, "width", 0);
  const double height = Number_Or(camera, "height", 0);
  if (!(width >= 1 && width <= kMostPixels && height >= 1 && height <= kMostPixels)) {
    throw Refused(where + ": width or height is missing");
  }
  CameraGiven given;
  given.width = static_cast<int>(width);
  given.height = static_cast<int>(height);
  const double longer = std::max(width, height);
  const double focal = Number_Or(camera, "focal", 0);
  const double fx = Number_Or(camera, "focal_x", focal) * longer;
  const double fy = Number_Or(camera, "focal_y", focal == 0 ? fx / longer : focal) * longer;
  if (!(fx > 0 && fy > 0)) throw Refused(where + ": the focal length is not positive");
  given.pixel_mm = kNominalPixel;
  given.f_mm = fx * kNominalPixel;
  given.pixel_y_mm = given.f_mm / fy;
  given.pp_x = Number_Or(camera, "c_x", 0) * longer;
  given.pp_y = Number_Or(camera, "c_y", 0) * longer;
  given.lens = {Number_Or(camera, "k1", 0), Number_Or(camera, "k2", 0), Number_Or(camera, "k3", 0),
                Number_Or(camera, "p1", 0), Number_Or(camera, "p2", 0)};
  return given;
}

std::optional<std::array<double, 3>> Three_Numbers(const json& parent, const char* key) {
  const auto found = parent.find(key);
  if (found == parent.end() || !found->is_array() || found->size() < 3) return std::nullopt;
  std::array<double, 3> numbers{};
  for (std::size_t i = 0; i < 3; ++i) {
    if (!(*found)[i].is_number()) return std::nullopt;
    numbers[i] = (*found)[i].get<double>();
  }
  return numbers;
}

std::string Utc_Of(double seconds) {
  constexpr double kMilliseconds = 1e11;  // above that, a time is not in seconds
  if (seconds > kMilliseconds) seconds /= 1000;
  if (!(seconds > 0 && seconds < kMilliseconds)) return "";
  const auto whole = static_cast<std::time_t>(seconds);
  std::tm parts{};
  gmtime_r(&whole, &parts);
  char text[40];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

const json& Member(const json& parent, const char* key, const std::string& where) {
  const auto found = parent.find(key);
  if (found == parent.end()) throw Refused(where + ": \"" + key + "\" is missing");
  return *found;
}

std::string Text_Member(const json& parent, const char* key, const std::string& where) {
  const json& value = Member(parent, key, where);
  if (!value.is_string()) throw Refused(where + ": \"" + key + "\" is no text");
  return value.get<std::string>();
}

PhotoGiven Photo_Of(const json& feature, const json& cameras, const std::string& where) {
  const json& properties = Member(feature, "properties", where);
  PhotoGiven photo;
  photo.rotation = RotationGiven::AxisAngle;
  photo.name = Text_Member(properties, "filename", where);
  const std::string camera = Text_Member(properties, "camera", where);
  if (!cameras.contains(camera)) {
    throw Refused(where + ": the camera \"" + camera + "\" is not in the cameras file");
  }
  photo.camera = Camera_Of(cameras[camera], "camera \"" + camera + "\"");
  const auto rotation = Three_Numbers(properties, "rotation");
  if (!rotation) throw Refused(where + ": rotation is not three numbers");
  photo.numbers = {(*rotation)[0], (*rotation)[1], (*rotation)[2], 0};
  const auto translation = Three_Numbers(properties, "translation");
  if (translation) photo.position = {(*translation)[0], (*translation)[1], (*translation)[2]};
  const auto geometry = feature.find("geometry");
  if (geometry != feature.end() && geometry->is_object()) {
    const auto degrees = Three_Numbers(*geometry, "coordinates");
    if (degrees) photo.degrees = Point3D{(*degrees)[0], (*degrees)[1], (*degrees)[2]};
  }
  if (!translation && !photo.degrees) throw Refused(where + ": no position is told");
  photo.utc = Utc_Of(Number_Or(properties, "capture_time", 0));
  return photo;
}

}  // namespace

OrientationTable Parse_Shots(const NamedText& text, const NamedText& camera_text) {
  if (camera_text.name.empty()) {
    throw Refused(text.name + ": no cameras.json lies beside it; give the file by --cameras");
  }
  const json root = Parsed(text);
  json cameras = Parsed(camera_text);
  if (!cameras.is_object()) throw Refused(camera_text.name + ": no cameras are described");
  if (cameras.contains("cameras") && cameras["cameras"].is_object()) {
    cameras = json(cameras["cameras"]);
  }
  const json* const features =
      root.is_object() && root.contains("features") ? &root["features"] : nullptr;
  if (features == nullptr || !features->is_array()) {
    throw Refused(text.name + ": the file holds no features");
  }
  OrientationTable parsed;
  parsed.stated.y_down = true;
  parsed.stated.pp_y_down = true;
  for (std::size_t i = 0; i < features->size(); ++i) {
    parsed.photos.push_back(
        Photo_Of((*features)[i], cameras, text.name + ", feature " + std::to_string(i + 1)));
  }
  return parsed;
}

void Place_In_System(OrientationTable& table, const std::string& crs) {
  OGRSpatialReference degrees;
  const OGRSpatialReference system = Coordinate_System(crs);
  degrees.SetWellKnownGeogCS("WGS84");
  degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> to_map(
      OGRCreateCoordinateTransformation(&degrees, &system));
  for (PhotoGiven& photo : table.photos) {
    if (!photo.degrees) continue;
    double X = photo.degrees->X;
    double Y = photo.degrees->Y;
    if (to_map == nullptr || to_map->Transform(1, &X, &Y) == 0 || !std::isfinite(X + Y)) {
      throw Refused(photo.name + ": its position cannot be brought into the site's system");
    }
    if (std::hypot(X - photo.position.X, Y - photo.position.Y) < kNear) continue;
    photo.position = {X, Y, photo.degrees->Z};
  }
}

}  // namespace sylvomex
