// SPDX-License-Identifier: MIT
#include "crown_summary.h"

#include <algorithm>
#include <cstdio>
#include <functional>

#include "demo/table/sample_statistics.h"
#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

std::vector<double> Doubled(std::vector<double> values) {
  for (double& value : values) value *= 2;
  return values;
}

// Mean over the seeds, and in brackets the least and the greatest of several.
std::string Spread_Text(const std::vector<double>& of_seeds, int decimals) {
  if (of_seeds.empty()) return "-";
  const SampleStatistics s = Statistics_Of(of_seeds);
  std::string text = Fixed_Decimals(s.mean, decimals);
  if (of_seeds.size() < 2) return text;
  const auto [least, greatest] = std::ranges::minmax(of_seeds);
  return text + " (" + Fixed_Decimals(least, decimals) + ".." + Fixed_Decimals(greatest, decimals) +
         ")";
}

using Figure = std::function<double(const CrownErrors&)>;

// Seeds without a fitted crown have no figure but their share.
std::string Column(const std::vector<CrownErrors>& seeds, const Figure& figure, int decimals) {
  std::vector<double> values;
  for (const CrownErrors& errors : seeds) {
    if (!errors.plan.empty()) values.push_back(figure(errors));
  }
  return Spread_Text(values, decimals);
}

std::string Row(const std::string& name, const std::vector<CrownErrors>& seeds) {
  std::size_t trees = 0;
  std::vector<double> shares;
  for (const CrownErrors& errors : seeds) {
    trees += errors.trees;
    if (errors.trees == 0) continue;
    shares.push_back(100 * static_cast<double>(errors.plan.size()) /
                     static_cast<double>(errors.trees));
  }
  const auto rms = [](const std::vector<double>& values) { return Statistics_Of(values).rms; };
  const auto mean = [](const std::vector<double>& values) { return Statistics_Of(values).mean; };
  const std::string columns[] = {
      Spread_Text(shares, 0),
      Column(
          seeds, [&](const CrownErrors& e) { return rms(e.plan); }, 2),
      Column(
          seeds, [&](const CrownErrors& e) { return mean(e.height); }, 2),
      Column(
          seeds, [&](const CrownErrors& e) { return rms(e.height); }, 2),
      Column(
          seeds, [&](const CrownErrors& e) { return mean(Doubled(e.radius)); }, 2),
      Column(
          seeds, [&](const CrownErrors& e) { return rms(Doubled(e.radius)); }, 2)};
  std::string row = name + std::string(22 - std::min<std::size_t>(name.size(), 21), ' ');
  const std::string count = std::to_string(trees);
  row += std::string(6 - std::min<std::size_t>(count.size(), 6), ' ') + count;
  for (const std::string& column : columns) {
    row += "  " + column + std::string(20 - std::min<std::size_t>(column.size(), 20), ' ');
  }
  row.erase(row.find_last_not_of(' ') + 1);
  return row + "\n";
}

std::vector<CrownErrors> Of_Species(const std::vector<CrownCaseRun>& runs,
                                    std::optional<Species> species) {
  std::vector<CrownErrors> seeds;
  for (const CrownCaseRun& run : runs) {
    if (run.done) seeds.push_back(Errors_Of(run.trees, species));
  }
  return seeds;
}

}  // namespace

std::string Crown_Heading() {
  char line[200];
  std::snprintf(line, sizeof line, "%-22s%6s  %-20s  %-20s  %-20s  %-20s  %-20s  %s\n", "", "trees",
                "fitted %", "axis XY", "height bias", "height RMSE", "diameter bias",
                "diameter RMSE");
  return line;
}

std::string Crown_Rows(const CrownCase& one, const std::vector<CrownCaseRun>& runs) {
  std::string text = Fixed_Decimals(one.stems_per_hectare, 0) + " stems/ha, " +
                     Fixed_Decimals(one.pulses, 0) + " pulses/m2\n";
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    text += Row("  " + std::string(Species_Name(species)), Of_Species(runs, species));
  }
  return text + Row("  all", Of_Species(runs, {}));
}

std::string Crown_Legend() {
  return "trees: above 10 m, wholly in a box of 50 m by 50 m, with 25 echoes and more in the "
         "upper\n"
         "half of their height; nine boxes a stand, all seeds together. fitted: share of them "
         "with\n"
         "a crown whose axis lies within their crown. Errors are metres, fitted less true; the\n"
         "diameter is that at half the height, or the greatest where the true crown ends above.\n"
         "Several seeds: mean (least..greatest).\n";
}

}  // namespace sylvomex::demo
