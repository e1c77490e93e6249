// SPDX-License-Identifier: MIT
// A site made and filled by sylvomex-site, and looked at through the workstation's scripts.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "platform/point3d.h"
#include "session/session.h"
#include "site_program/played_program.h"
#include "support/temporary_folder.h"

namespace sylvomex {

struct ImportedSite : testing::Test {
  TemporaryFolder folder;
  std::string site = (folder.Path() / "site").string();

  ImportedSite() { EXPECT_EQ(Play_Site({"init", site, "--crs", "EPSG:3067"}).status, 0); }

  SitePlayed Import(const std::string& kind, std::vector<std::string> words) {
    words.insert(words.begin(), {"--json", "import", kind, site});
    return Play_Site(words);
  }

  SitePlayed Export(const std::string& kind, const std::string& input, const std::string& output) {
    return Play_Site({"export", site, kind, input, output});
  }

  /// A native path inside the site.
  [[nodiscard]] std::string Native(const std::string& name) const {
    return (folder.Path() / "site" / name).string();
  }

  Point3D Shift() {
    const auto text = folder.Read("site/site.toml");
    const std::size_t at = text.find("shift = [");
    Point3D shift;
    EXPECT_EQ(std::sscanf(text.c_str() + at, "shift = [ %lf, %lf", &shift.X, &shift.Y), 2);
    return shift;
  }

  /// Every file below the site with its content.
  std::map<std::string, std::string> Content() {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(site)) {
      const std::string name = entry.path().lexically_relative(folder.Path()).string();
      files[name] = entry.is_directory() ? "" : folder.Read(name);
    }
    return files;
  }

  /// The transcript of a script on the site.
  std::string Played(const std::string& script) {
    std::istringstream in(script);
    std::ostringstream out, err;
    SessionOptions options;
    options.script = "-";
    options.root = site;
    options.width = 1280;
    options.height = 1024;
    EXPECT_EQ(Run_Session(options, {in, out, err}), 0) << err.str() << out.str();
    return out.str();
  }

  /// The first numbers behind "= " of the lines of a transcript.
  static std::vector<double> Results(const std::string& transcript) {
    std::vector<double> numbers;
    std::istringstream lines(transcript);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t at = line.find("= ");
      if (at != std::string::npos) numbers.push_back(std::stod(line.substr(at + 2)));
    }
    return numbers;
  }
};

}  // namespace sylvomex
