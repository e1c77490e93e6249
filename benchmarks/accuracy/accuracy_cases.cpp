// SPDX-License-Identifier: MIT
#include "accuracy_cases.h"

namespace sylvomex::demo {
namespace {

AccuracyCase Density(const std::string& name, double stems_per_hectare) {
  SiteSettings settings;
  settings.stems_per_hectare = stems_per_hectare;
  return {name, settings};
}

AccuracyCase Mixture(const std::string& name, double pine, double spruce, double birch) {
  SiteSettings settings;
  settings.pine_share = pine;
  settings.spruce_share = spruce;
  settings.birch_share = birch;
  return {name, settings};
}

AccuracyCase Sun_And_Noise(const std::string& name, double elevation_deg, double noise_sigma) {
  SiteSettings settings;
  settings.sun_elevation_deg = elevation_deg;
  settings.noise_sigma = noise_sigma;
  return {name, settings};
}

}  // namespace

std::vector<AccuracyCase> Short_Case_List() {
  return {{"demo stand", {}},
          Density("300 stems/ha", 300),
          Mixture("spruce 80 %", 0.1, 0.8, 0.1),
          Sun_And_Noise("sun 25, noise 10", 25, 10)};
}

std::vector<AccuracyCase> Long_Case_List() {
  std::vector<AccuracyCase> cases = Short_Case_List();
  const SiteSettings base;
  cases.push_back(Density("200 stems/ha", 200));
  cases.push_back(Density("600 stems/ha", 600));
  cases.push_back(Mixture("pine 80 %", 0.8, 0.1, 0.1));
  cases.push_back(Mixture("birch 80 %", 0.1, 0.1, 0.8));
  cases.push_back(Sun_And_Noise("sun 25", 25, base.noise_sigma));
  cases.push_back(Sun_And_Noise("sun 60", 60, base.noise_sigma));
  cases.push_back(Sun_And_Noise("noise 10", base.sun_elevation_deg, 10));
  cases.push_back(Sun_And_Noise("noise 25", base.sun_elevation_deg, 25));
  return cases;
}

}  // namespace sylvomex::demo
