// SPDX-License-Identifier: MIT
// A small site for regions: the three photographs and flat models of the matching tests (ground 2
// m, canopy 12 m), with four trees around (3, 3), and a table of model trees.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "commands/matching/matching_site.h"
#include "region_program/region_program.h"

namespace sylvomex {

struct RegionPlayed {
  int status = -1;
  std::string out, err;
};

inline RegionPlayed Play_Region(std::vector<std::string> words) {
  std::ostringstream out, err;
  const int status = Run_Region_Program(std::move(words), out, err);
  return {status, out.str(), err.str()};
}

class RegionSite : public testing::Test {
 protected:
  RegionSite() { Write("trees.csv", "id,x,y,z\nspruce,5,4,10.9\n"); }

  void Write(const std::string& name, const std::string& text) const { work_.Write(name, text); }
  [[nodiscard]] std::string Path(const std::string& name) const {
    return (work_.Path() / name).string();
  }
  [[nodiscard]] std::filesystem::path Site_File(const std::string& name) const {
    return files_.site.Folder().Path() / name;
  }

  /// A region's text; what is given goes before its tables.
  [[nodiscard]] std::string Region(const std::string& given, const std::string& tables = "") const {
    return "site = '" + files_.site.Folder().Path().string() +
           "'\ncrs = 'EPSG:3067'\nheaders = ['c:\\data\\im?.hdr']\ndem = 'c:\\data\\dem.hdr'\n"
           "chm = 'c:\\data\\chm.hdr'\n" +
           given + "\n[boxes]\nr = 6\nMesh = 1\nRl = 0.4\n[model_trees]\nfile = 'trees.csv'\n" +
           tables;
  }

  static std::string Plots(const std::string& rows) { return "plots = [" + rows + "]"; }
  static std::string Plot(const std::string& id, double X, double Y) {
    return "{id = '" + id + "', x = " + std::to_string(X) + ", y = " + std::to_string(Y) + "},";
  }

  RegionPlayed Plan(const std::string& region, const std::string& folder = "plan",
                    const std::vector<std::string>& more = {}) const {
    Write("region.toml", region);
    std::vector<std::string> words{"plan", Path("region.toml"), "--out", Path(folder)};
    words.insert(words.end(), more.begin(), more.end());
    return Play_Region(words);
  }
  RegionPlayed Run(const std::vector<std::string>& words,
                   const std::string& folder = "plan") const {
    std::vector<std::string> all{"run", Path(folder)};
    all.insert(all.end(), words.begin(), words.end());
    return Play_Region(all);
  }
  RegionPlayed Merge(const std::string& out, const std::string& folder = "plan") const {
    return Play_Region({"merge", Path(folder), "--out", Path(out)});
  }

  [[nodiscard]] std::string Read(const std::string& name) const { return work_.Read(name); }
  [[nodiscard]] bool Has(const std::string& name) const { return work_.Has(name); }
  [[nodiscard]] nlohmann::json Json(const std::string& name) const {
    return nlohmann::json::parse(Read(name));
  }

  MatchingFiles files_;
  TemporaryFolder work_;
};

}  // namespace sylvomex
