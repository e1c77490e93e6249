// SPDX-License-Identifier: MIT
// What keeps heights by vertical line search from the truth: the searches on the open heath of the
// demo site, with one thing changed at a time.
#include <cstdio>
#include <exception>
#include <map>
#include <memory>
#include <utility>

#include "search_variants.h"

namespace sylvomex::bench {
namespace {

constexpr double kPairLimit = 0.35, kTripletLimit = 0.15;  // half a step and 0.1 m
constexpr double kTripletPolygonLimit = 0.2;

constexpr std::array<int, 2> kLaterImages{1, 2};
constexpr SceneVariant kNoNoise{0, false}, kLevel{2.5, true}, kLevelNoNoise{0, true};

SearchSettings With_Window(SearchSettings settings, int side) {
  settings.window_side = side;
  return settings;
}

SearchSettings From_Outer(SearchSettings settings) {
  settings.fixed_image = 0;
  settings.moving_images = kLaterImages;
  return settings;
}

std::vector<SearchVariant> Variants() {
  return {
      {"pair", kPairPoint, kPairLimit},
      {"  places at pixel centres", kPairPoint, kPairLimit, {}, true},
      {"  no noise", kPairPoint, kPairLimit, kNoNoise},
      {"  level ground", kPairPoint, kPairLimit, kLevel},
      {"triplet", kTripletPoint, kTripletLimit},
      {"  places at pixel centres", kTripletPoint, kTripletLimit, {}, true},
      {"  no noise", kTripletPoint, kTripletLimit, kNoNoise},
      {"  level ground", kTripletPoint, kTripletLimit, kLevel},
      {"  level ground, no noise", kTripletPoint, kTripletLimit, kLevelNoNoise},
      {"  middle of equal scores",
       kTripletPoint,
       kTripletLimit,
       {},
       false,
       Windows::OnWholePixels,
       Ties::Middle},
      {"  interpolated windows", kTripletPoint, kTripletLimit, {}, false, Windows::Interpolated},
      {"  window of 9 pixels", With_Window(kTripletPoint, 9), kTripletLimit},
      {"  window of 17 pixels", With_Window(kTripletPoint, 17), kTripletLimit},
      {"  outer photograph fixed", From_Outer(kTripletPoint), kTripletLimit},
      {"  outer fixed, pixel centres", From_Outer(kTripletPoint), kTripletLimit, {}, true},
      {"pair's polygon", kPairPolygon, kPairLimit},
      {"triplet's polygon", kTripletPolygon, kTripletPolygonLimit},
  };
}

/// Scenes that were rendered already.
class Scenes {
 public:
  const SurfaceScene& Of(const SceneVariant& variant) {
    auto& scene = scenes_[{variant.noise, variant.level_ground}];
    if (!scene) scene = std::make_unique<SurfaceScene>(variant);
    return *scene;
  }

 private:
  std::map<std::pair<double, bool>, std::unique_ptr<SurfaceScene>> scenes_;
};

void Print_Table() {
  Scenes scenes;
  std::printf(
      "found less true, m                 n  limit  within    mean     RMS  > 1 m  RMS without\n");
  for (const SearchVariant& variant : Variants()) {
    const VariantResult r = Run_Variant(variant, scenes.Of(variant.scene));
    std::printf("%-30s %5zu  %5.2f %6.1f%% %7.3f %7.3f  %5zu  %11.3f\n", variant.name.c_str(), r.n,
                variant.limit, 100 * r.within, r.mean, r.rms, r.blunders, r.rms_without_blunders);
    std::fflush(stdout);
  }
}

}  // namespace
}  // namespace sylvomex::bench

int main() {
  try {
    sylvomex::bench::Print_Table();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "accuracy_surface: %s\n", error.what());
    return 1;
  }
}
