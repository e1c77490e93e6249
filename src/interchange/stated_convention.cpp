// SPDX-License-Identifier: MIT
#include "interchange/stated_convention.h"

#include <algorithm>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

bool Is_For(const ChosenConvention& chosen, const OrientationTable& table) {
  return chosen.table == table.checksum && chosen.cameras == table.cameras_checksum;
}

}  // namespace

Convention Convention_To_Use(const Site& site, const OrientationTable& table) {
  const auto chosen = std::find_if(site.conventions.begin(), site.conventions.end(),
                                   [&](const auto& kept) { return Is_For(kept, table); });
  if (chosen == site.conventions.end()) return table.stated;
  const RotationGiven rotation = table.photos.front().rotation;
  for (const Convention& convention : Plausible_Conventions(table.stated, table.photos)) {
    if (Convention_Name(convention, rotation) == chosen->name) return convention;
  }
  throw Refused((site.folder / "site.toml").string() + ": the convention \"" + chosen->name +
                "\" is not known");
}

void Keep_Convention(Site& site, const OrientationTable& table, const Convention& convention) {
  std::erase_if(site.conventions, [&](const auto& kept) { return Is_For(kept, table); });
  site.conventions.push_back({table.checksum, table.cameras_checksum,
                              Convention_Name(convention, table.photos.front().rotation)});
}

}  // namespace sylvomex
