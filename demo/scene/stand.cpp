// SPDX-License-Identifier: MIT
#include "demo/scene/stand.h"

#include <algorithm>
#include <cmath>

#include "demo/scene/counter_random.h"
#include "demo/scene/value_noise.h"

namespace sylvomex::demo {
namespace {

constexpr std::uint64_t kTreeStream = 2;
constexpr std::uint64_t kDensityStream = 3;
constexpr double kLeastHeight = 8, kMostHeight = 28;  // metres
constexpr int kTriesPerTree = 60;

Species Draw_Species(const SiteSettings& settings, RandomDraws& draws) {
  const double sum = settings.pine_share + settings.spruce_share + settings.birch_share;
  const double at = draws.Uniform() * sum;
  if (at < settings.pine_share) return Species::Pine;
  return at < settings.pine_share + settings.spruce_share ? Species::Spruce : Species::Birch;
}

/// Three of four trees are dominant, most of the others co-dominant, a few suppressed.
double Draw_Height(Species species, RandomDraws& draws) {
  const double layer = draws.Uniform();
  const double taller = species == Species::Spruce ? 1.0 : species == Species::Birch ? -1.0 : 0.0;
  double height = draws.Normal(21.5 + taller, 2.2);
  if (layer > 0.75) height = draws.Normal(16.5 + taller, 1.5);
  if (layer > 0.92) height = draws.Normal(11, 1.5);
  return std::clamp(height, kLeastHeight, kMostHeight);
}

void Shape_Crown(Tree& tree, double height, RandomDraws& draws) {
  const double vigour = draws.Uniform(0.85, 1.15);
  switch (tree.species) {
    case Species::Pine:
      tree.crown_length = 0.40 * height * vigour;
      tree.crown_radius = (0.5 + 0.112 * height) * vigour;
      break;
    case Species::Spruce:
      tree.crown_length = 0.75 * height;
      tree.crown_radius = (0.6 + 0.098 * height) * vigour;
      break;
    case Species::Birch:
      tree.crown_length = 0.55 * height * vigour;
      tree.crown_radius = (0.5 + 0.118 * height) * vigour;
      break;
  }
  tree.stem_radius = 0.0055 * height;
}

Tree Draw_Tree(const SiteSettings& settings, const Ground& ground, RandomDraws& draws) {
  Tree tree;
  tree.species = Draw_Species(settings, draws);
  const double height = Draw_Height(tree.species, draws);
  Shape_Crown(tree, height, draws);
  const double reach = kForestSide - tree.crown_radius;
  tree.X = kForestWest + draws.Uniform(tree.crown_radius, reach);
  tree.Y = kForestSouth + draws.Uniform(tree.crown_radius, reach);
  tree.GroundZ = Ground_Height(ground, tree.X, tree.Y);
  tree.TopZ = tree.GroundZ + height;
  return tree;
}

bool Has_Room(const Tree& tree, const std::vector<Tree>& stand) {
  return std::none_of(stand.begin(), stand.end(), [&tree](const Tree& other) {
    const double core = tree.crown_radius + other.crown_radius;
    const double dx = tree.X - other.X, dy = tree.Y - other.Y;
    return dx * dx + dy * dy < core * core;
  });
}

bool Suits_Place(const Tree& tree, std::uint64_t density_key, RandomDraws& draws) {
  constexpr double patch = 45;  // metres
  const double density = Fractal_Noise(density_key, (tree.X - kForestWest) / patch,
                                       (tree.Y - kForestSouth) / patch, 2);
  return draws.Uniform() < 0.25 + 1.1 * density;
}

}  // namespace

std::vector<Tree> Plant_Stand(const SiteSettings& settings, const Ground& ground) {
  const double hectares = kForestSide * kForestSide / 10000;
  const auto wanted = static_cast<std::size_t>(std::lround(settings.stems_per_hectare * hectares));
  const std::uint64_t density_key = Stream_Key(settings.seed, kDensityStream);
  RandomDraws draws{Stream_Key(settings.seed, kTreeStream)};
  std::vector<Tree> stand;
  for (std::size_t tries = wanted * kTriesPerTree; tries > 0 && stand.size() < wanted; --tries) {
    Tree tree = Draw_Tree(settings, ground, draws);
    if (!Suits_Place(tree, density_key, draws) || !Has_Room(tree, stand)) continue;
    tree.id = static_cast<int>(stand.size()) + 1;
    stand.push_back(tree);
  }
  return stand;
}

}  // namespace sylvomex::demo
