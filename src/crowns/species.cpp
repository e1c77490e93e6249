// SPDX-License-Identifier: MIT
#include "crowns/species.h"

#include "platform/table.h"

namespace sylvomex {
namespace {

constexpr double kShareOfRadius = 0.6;
constexpr double kDecimetres = 10;  // in a metre
constexpr double kLocalOffset = 0.3;

struct SpeciesConstants {
  CrownShape start;
  double local_scale;              // of the start value a of one tree
  double local_exponent;           // its start value p
  double crown_at_0, crown_slope;  // crown diameter from height, both in decimetres
  double c1, c2, c3, c4;           // stem diameter
};

constexpr SpeciesConstants kSpecies[] = {
    {{0.1, 0.75, 0.5}, 1.0, 0.75, 0, 0, 0, 0, 0, 0},
    {{0.1, 0.75, 0.5}, 1.0, 0.7, 13, 0.1636, 1.323, 3.155, 0.73, 0.811},
    {{0.1, 0.75, 0.5}, 1.0, 0.7, 14, 0.15, 1.016, 3.214, 0.861, 0.742},
    {{0.13, 0.25, 0.5}, 1.2, 0.25, 8, 0.214, 1.143, 3.341, 0.7, 0.78},
    {{0.12, 0.25, 0.5}, 1.0, 0.25, 14, 0.15, 1.016, 3.214, 0.861, 0.811},
};

const SpeciesConstants& Constants_Of(int species, int first) {
  if (species < first || species > kSpeciesCount) Throw_Subscript(species, first, kSpeciesCount);
  return kSpecies[species];
}

}  // namespace

CrownShape Start_Shape(int species) { return Constants_Of(species, 0).start; }

CrownShape Local_Start_Shape(int species, double search_radius, double height) {
  const SpeciesConstants& of = Constants_Of(species, 0);
  if (height == 0) {
    throw RunTimeError(Failure::DivisionByZero, "a tree of height 0 has no crown shape");
  }
  return {of.local_scale * search_radius / height, of.local_exponent, kLocalOffset};
}

double Search_Radius(int species, double height) {
  const SpeciesConstants& of = Constants_Of(species, 1);
  const double diameter = of.crown_at_0 + of.crown_slope * (height * kDecimetres);
  return diameter / kDecimetres / 2 * kShareOfRadius;
}

double Stem_Diameter(int species, double crown_diameter, double height, const Report& report) {
  const SpeciesConstants& of = Constants_Of(species, 1);
  const double root = of.c1 * Safe_Sqrt(kDecimetres * crown_diameter, report) - of.c2 +
                      of.c3 * Safe_Sqrt(kDecimetres * height, report);
  return (root * root + of.c4) / 10;
}

}  // namespace sylvomex
