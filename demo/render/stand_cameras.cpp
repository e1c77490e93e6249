// SPDX-License-Identifier: MIT
#include "demo/render/stand_cameras.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "demo/render/photo_renderer.h"
#include "demo/render/ray_caster.h"
#include "platform/rounding.h"
#include "solver/ray_angles.h"

namespace sylvomex::demo {
namespace {

constexpr int kFrameColumns = 1152, kFrameRows = 1536;
constexpr double kPixel = 2 * kStandHalfWidth / kFrameColumns;  // metres
constexpr double kEyeHeight = 1.6;                              // metres above ground
constexpr int kMostCameras = 3;
constexpr double kFirstAzimuth = 22, kAzimuthStep = 40;  // degrees
constexpr int kAzimuths = 9;
constexpr int kNearest = 8, kFarthest = 14;  // metres to the tree
constexpr double kClearance = 1.0;           // metres to the next stem
constexpr double kTurnedAway = 150;          // degrees
constexpr double kStemTolerance = 0.3;       // metres

Point3D Eye_At(const Scene& scene, double X, double Y) {
  return {X, Y, Ground_Height(scene, X, Y) + kEyeHeight};
}

/// Free for a camera: no stem near, no foliage at eye height.
bool Is_Free(const Scene& scene, const Point3D& eye) {
  return std::none_of(scene.trees.begin(), scene.trees.end(), [&eye](const Tree& tree) {
    const double distance = std::hypot(eye.X - tree.X, eye.Y - tree.Y);
    const double base = tree.TopZ - tree.crown_length;
    return distance < kClearance || (distance < tree.crown_radius + 0.3 && base < eye.Z + 0.3);
  });
}

Vector3 Direction(const Point3D& from, const Point3D& to) {
  Vector3 direction{to.X - from.X, to.Y - from.Y, to.Z - from.Z};
  Normalize_Vector(direction);
  return direction;
}

bool Is_Stem_Visible(const Scene& scene, const Point3D& eye, std::size_t tree) {
  const Point3D stem = Breast_Height_Point(scene.trees[tree]);
  const Vector3 d = Direction(eye, stem);
  const Ray ray{eye.X, eye.Y, eye.Z, d.x, d.y, d.z};
  const auto hit = Cast_Stand_Ray(scene, ray, 2 * kFarthest, Foliage::Closed);
  return hit && hit->tree == static_cast<int>(tree) &&
         std::hypot(hit->X - stem.X, hit->Y - stem.Y) < kStemTolerance;
}

std::optional<Point3D> Place_At_Azimuth(const Scene& scene, std::size_t tree, double azimuth) {
  const Tree& seen = scene.trees[tree];
  for (int distance = kNearest; distance <= kFarthest; ++distance) {
    const double a = azimuth * kRadiansPerDegree;
    const Point3D eye =
        Eye_At(scene, seen.X + distance * std::sin(a), seen.Y + distance * std::cos(a));
    if (Is_Free(scene, eye) && Is_Stem_Visible(scene, eye, tree)) return eye;
  }
  return std::nullopt;
}

/// The aim is at eye height, so that the camera is horizontal.
Point3D Aim_At(const Point3D& eye, const Tree& tree) { return {tree.X, tree.Y, eye.Z}; }

Point3D Turned_About(const Point3D& eye, const Point3D& target, double degrees) {
  const double c = std::cos(degrees * kRadiansPerDegree), s = std::sin(degrees * kRadiansPerDegree);
  const double dx = target.X - eye.X, dy = target.Y - eye.Y;
  return {eye.X + c * dx - s * dy, eye.Y + s * dx + c * dy, target.Z};
}

void Set_Frame(ImageRecord& image, double scale) {
  image.FullWidth = To_Int16(kFrameColumns / scale);
  image.FullHeight = To_Int16(kFrameRows / scale);
  image.SubWidth = image.FullWidth;
  image.SubHeight = image.FullHeight;
  image.PrincipalDistance = kStandPrincipalDistance;
  image.AffineA1 = image.AffineB2 = 1 / (kPixel * scale);
  image.AffineA0 = image.FullWidth / 2.0;
  image.AffineB0 = image.FullHeight / 2.0 - 1;
}

Colour3 Sky_Colour(const Ray& ray) {
  const auto height = static_cast<float>(std::clamp(ray.w, 0.0, 1.0));
  return {214 - 60 * height, 222 - 40 * height, 232 - 14 * height};
}

}  // namespace

Point3D Breast_Height_Point(const Tree& tree) {
  return {tree.X, tree.Y, tree.GroundZ + kBreastHeight};
}

// Rows of the rotation are the camera's axes: m3 opposite to the view, m1 horizontal, m2 = m3 x m1.
RotationAngles Angles_Of_View(const Vector3& direction) {
  const Vector3 back{-direction.x, -direction.y, -direction.z};
  Vector3 right{direction.y, -direction.x, 0};
  Normalize_Vector(right);
  const double up_x = back.y * right.z - back.z * right.y;
  // Adding 0 turns -0 into 0.
  return {std::atan2(-back.y, back.z), std::asin(back.x) + 0.0, std::atan2(-up_x, right.x) + 0.0};
}

Photograph Stand_Photograph(const Scene& scene, const Point3D& position, const Point3D& target,
                            int id, const std::string& name) {
  Photograph photo;
  ImageRecord& image = photo.image;
  image.ImageId = id;
  image.ColorFlag = 1;
  image.ImageComment = "Demo stand, level view";
  image.RawFileName = name + ".raw";
  photo.header_name = name + ".hdr";
  photo.grain = static_cast<std::uint64_t>(id);
  Set_Frame(image, scene.settings.pixel_scale);
  image.StartCol = To_Int16(image.SubWidth / 2);
  image.StartRow = To_Int16(image.SubHeight / 2);
  const RotationAngles angles = Angles_Of_View(Direction(position, target));
  image.Omega = angles.omega;
  image.Phi = angles.phi;
  image.Kappa = angles.kappa;
  image.X0 = position.X;
  image.Y0 = position.Y;
  image.Z0 = position.Z;
  image.SunAzimuth = scene.sun_azimuth;
  image.SunElevation = scene.sun_elevation;
  photo.camera = Make_Camera(image);
  return photo;
}

std::vector<Photograph> Photographs_Around(const Scene& scene, std::size_t tree) {
  std::vector<Photograph> photos;
  const auto add = [&](const Point3D& eye, const Point3D& target) {
    const int number = static_cast<int>(photos.size()) + 1;
    photos.push_back(Stand_Photograph(scene, eye, target, 600 + number,
                                      "c:\\data\\demo\\terr" + std::to_string(number)));
  };
  std::optional<Point3D> first;
  for (int i = 0; i < kAzimuths && photos.size() < kMostCameras; ++i) {
    // Every third azimuth, so that neighbours in the list look from different sides.
    const int turns = 3 * i % kAzimuths + 3 * i / kAzimuths;
    const double azimuth = kFirstAzimuth + kAzimuthStep * turns;
    const auto eye = Place_At_Azimuth(scene, tree, azimuth);
    if (!eye) continue;
    add(*eye, Aim_At(*eye, scene.trees[tree]));
    if (!first) first = eye;
  }
  if (first) add(*first, Turned_About(*first, Aim_At(*first, scene.trees[tree]), kTurnedAway));
  return photos;
}

Ray Stand_Ray(const Photograph& photo, double col, double row) {
  Vector3 d = Film_Ray(photo.camera, Pixel_To_Image(photo.camera, {col, row}));
  Normalize_Vector(d);
  return {photo.image.X0, photo.image.Y0, photo.image.Z0, d.x, d.y, d.z};
}

std::vector<std::uint8_t> Render_Stand_Photograph(const Scene& scene, const Photograph& photo) {
  constexpr double reach = 500;  // metres
  return Render_Rays(scene, photo, [&](double col, double row, RowMemory& memory) {
    const Ray ray = Stand_Ray(photo, col, row);
    const auto hit = Cast_Stand_Ray(scene, ray, reach, Foliage::Frayed);
    return hit ? Surface_Colour(scene, *hit, memory.shading_tree) : Sky_Colour(ray);
  });
}

}  // namespace sylvomex::demo
