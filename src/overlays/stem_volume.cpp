// SPDX-License-Identifier: MIT
#include "overlays/stem_volume.h"

#include <cmath>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kBreastHeight = 1.3;  // metres

// factor D^diameter base^D h^height (h - 1.3)^above_breast, D in centimetres.
struct VolumeFunction {
  double factor;
  double diameter;
  double base;
  double height;
  double above_breast;
};

constexpr VolumeFunction kPine{0.036089, 2.01395, 0.99676, 2.07025, -1.07209};
constexpr VolumeFunction kSpruce{0.022927, 1.91505, 0.99146, 2.82541, -1.53547};
constexpr VolumeFunction kBirch{0.011197, 2.10253, 0.986, 3.98519, -2.659};

const VolumeFunction& Function_Of(std::int32_t species) {
  if (species == 1) return kPine;
  return species == 2 ? kSpruce : kBirch;
}

}  // namespace

double Diameter_Share(std::int32_t species, double dbh) {
  const VolumeFunction& f = Function_Of(species);
  const double D = dbh / 10;
  return f.factor * std::pow(D, f.diameter) * std::pow(f.base, D);
}

double Stem_Volume(std::int32_t species, double dbh, double height) {
  const VolumeFunction& f = Function_Of(species);
  const double volume = Diameter_Share(species, dbh) * std::pow(height, f.height) *
                        std::pow(height - kBreastHeight, f.above_breast);
  if (!std::isfinite(volume)) {
    throw RunTimeError(Failure::Overflow, "no stem volume for a height of " + Plain_Text(height) +
                                              " m and a diameter of " + Plain_Text(dbh) + " mm");
  }
  return volume;
}

}  // namespace sylvomex
