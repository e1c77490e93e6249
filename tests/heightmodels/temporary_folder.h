// SPDX-License-Identifier: MIT
// A folder of a test's own, removed with everything in it when the test ends.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>

#include "platform/drive_map.h"

namespace sylvomex::testing {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "heightmodels-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = pattern;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(folder_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] FilePath File(const std::string& name) const {
    return {"c:\\data\\" + name, folder_ / name};
  }

  [[nodiscard]] FilePath Write(const std::string& name, const std::string& content) const {
    const FilePath file = File(name);
    std::ofstream(file.native, std::ios::binary) << content;
    return file;
  }

  [[nodiscard]] FilePath Write_Floats(const std::string& name, std::span<const float> cells) const {
    return Write(name, {reinterpret_cast<const char*>(cells.data()), cells.size_bytes()});
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace sylvomex::testing
