// SPDX-License-Identifier: MIT
#include "demo/render/surface_colour.h"

#include <array>
#include <cmath>

#include "demo/scene/value_noise.h"

namespace sylvomex::demo {
namespace {

constexpr std::uint64_t kGroundStream = 4;
constexpr std::uint64_t kCrownStream = 5;
constexpr Colour3 kHaze{11, 13, 17};

Colour3 Blend(const Colour3& a, const Colour3& b, double share) {
  const auto f = static_cast<float>(share);
  return {a.red + (b.red - a.red) * f, a.green + (b.green - a.green) * f,
          a.blue + (b.blue - a.blue) * f};
}

Colour3 Scaled(const Colour3& colour, double factor) {
  const auto f = static_cast<float>(factor);
  return {colour.red * f, colour.green * f, colour.blue * f};
}

/// 0 below low, 1 above high, smooth in between.
double Ramp(double value, double low, double high) {
  const double f = std::clamp((value - low) / (high - low), 0.0, 1.0);
  return f * f * (3 - 2 * f);
}

/// Two forest tracks about 3 m wide.
double Track_Share(double x, double y) {
  const double first = std::abs(y - 92 - 18 * std::sin(x / 41) - 0.12 * x);
  const double second = std::abs(x - 214 - 14 * std::sin(y / 33) + 0.2 * y);
  return 1 - Ramp(std::min(first, second), 1.1, 1.9);
}

Colour3 Ground_Reflection(const Scene& scene, double x, double y) {
  constexpr Colour3 moss{88, 96, 60}, heath{112, 100, 80}, lichen{146, 142, 120},
      track{196, 182, 154}, shrub{58, 70, 44};
  const std::uint64_t key = Stream_Key(scene.settings.seed, kGroundStream);
  const double patches = Fractal_Noise(key, x / 14, y / 14, 3);
  const double tufts = Fractal_Noise(key + 50, x / 0.9, y / 0.9, 3);
  const double shrubs = Value_Noise(key + 90, x / 1.7, y / 1.7);
  Colour3 colour = Blend(moss, heath, Ramp(patches, 0.38, 0.62));
  colour = Blend(colour, lichen, 0.8 * Ramp(tufts + 0.5 * patches, 0.85, 1.05));
  colour = Blend(colour, shrub, 0.75 * Ramp(shrubs + 0.3 * tufts, 0.82, 0.98));
  colour = Scaled(colour, 0.66 + 0.62 * tufts);
  return Blend(colour, Scaled(track, 0.82 + 0.3 * tufts), Track_Share(x, y));
}

Colour3 Leaf_Colour(const Tree& tree) {
  constexpr std::array<Colour3, 3> leaves = {{{82, 92, 62}, {58, 72, 46}, {104, 116, 62}}};
  const double age = Uniform_Of(Mix_Bits(static_cast<std::uint64_t>(tree.id) * 77));
  return Scaled(leaves[static_cast<std::size_t>(tree.species)], 0.84 + 0.32 * age);
}

/// Brightness of the foliage, and tilt of its shoots relative to the crown's surface.
struct Foliage_Texture {
  double brightness = 1;
  Vector3 tilt;
};

Foliage_Texture Texture_Of_Crown(const Scene& scene, const Tree& tree, const SurfaceHit& hit) {
  const std::uint64_t key =
      Stream_Key(scene.settings.seed, kCrownStream) + 1000U * static_cast<std::uint64_t>(tree.id);
  const double clump = tree.species == Species::Pine ? 0.62 : 0.45;  // metres
  const double x = (hit.X - tree.X) / clump, y = (hit.Y - tree.Y) / clump;
  const double z = (tree.TopZ - hit.Z) / clump;
  const double a = Value_Noise(key, x, y, z), b = Value_Noise(key + 1, x, y, z);
  const double fine = Value_Noise(key + 2, 2.7 * x, 2.7 * y, 2.7 * z);
  return {0.52 + 0.55 * a + 0.4 * fine, {1.3 * (a - 0.5), 1.3 * (b - 0.5), 0.8 * (fine - 0.5)}};
}

Colour3 Lit(const Scene& scene, const Colour3& reflection, const SurfaceHit& hit,
            const Vector3& normal, double sky, int& shading_tree) {
  const double cosine = normal.x * scene.sun.x + normal.y * scene.sun.y + normal.z * scene.sun.z;
  const bool sunlit =
      cosine > 0 && !Is_In_Shadow(scene, hit.X, hit.Y, hit.Z, hit.tree, shading_tree);
  const double sun = sunlit ? 1.3 * cosine : 0;
  return {kHaze.red + reflection.red * static_cast<float>(sun + 0.31 * sky),
          kHaze.green + reflection.green * static_cast<float>(sun + 0.33 * sky),
          kHaze.blue + reflection.blue * static_cast<float>(0.95 * sun + 0.38 * sky)};
}

Colour3 Crown_Colour(const Scene& scene, const Tree& tree, const SurfaceHit& hit,
                     int& shading_tree) {
  const double depth = (tree.TopZ - hit.Z) / tree.crown_length;
  const Foliage_Texture texture = Texture_Of_Crown(scene, tree, hit);
  Vector3 normal{hit.normal.x + texture.tilt.x, hit.normal.y + texture.tilt.y,
                 hit.normal.z + texture.tilt.z};
  Normalize_Vector(normal);
  const double brightness = texture.brightness * (1.15 - 0.45 * depth);
  return Lit(scene, Scaled(Leaf_Colour(tree), 1.15 * brightness), hit, normal, 1.9 - 1.2 * depth,
             shading_tree);
}

}  // namespace

Colour3 Surface_Colour(const Scene& scene, const SurfaceHit& hit, int& shading_tree) {
  if (hit.kind == SurfaceHit::Kind::Ground) {
    const Colour3 reflection = Ground_Reflection(scene, hit.X - kForestWest, hit.Y - kForestSouth);
    return Lit(scene, reflection, hit, hit.normal, 1, shading_tree);
  }
  const Tree& tree = scene.trees[static_cast<std::size_t>(hit.tree)];
  if (hit.kind == SurfaceHit::Kind::Crown) return Crown_Colour(scene, tree, hit, shading_tree);
  constexpr Colour3 pine_bark{138, 98, 70}, spruce_bark{92, 82, 72}, birch_bark{200, 198, 190};
  const Colour3 bark = tree.species == Species::Pine     ? pine_bark
                       : tree.species == Species::Spruce ? spruce_bark
                                                         : birch_bark;
  return Lit(scene, bark, hit, hit.normal, 0.7, shading_tree);
}

}  // namespace sylvomex::demo
