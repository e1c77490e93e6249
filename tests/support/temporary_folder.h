// SPDX-License-Identifier: MIT
// A temporary folder for a test, removed with its contents at the end of the scope.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "sylvomex_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  /// The file of that name ("a.hdr", "c/data/a.hdr") in the folder; it need not exist. Messages use
  /// that name.
  [[nodiscard]] FilePath File(std::string_view name) const {
    return {std::string(name), path_ / name};
  }

  /// A drive map whose drives c, d ... are sub-folders of this folder.
  [[nodiscard]] DriveMap Drives() const { return DriveMap(path_); }

  /// Creates a sub-folder with its parents.
  std::filesystem::path Make_Folder(std::string_view name) const {
    std::filesystem::create_directories(path_ / name);
    return path_ / name;
  }

  /// Writes a file, replacing an old one and creating its parent folders, and returns it.
  FilePath Write(std::string_view name, std::string_view content) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream stream(path_ / name, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream.flush()) throw std::runtime_error("cannot write " + std::string(name));
    return File(name);
  }

  /// The bytes of a file; throws when it is missing.
  [[nodiscard]] std::string Read(std::string_view name) const {
    std::ifstream stream(path_ / name, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + std::string(name));
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  [[nodiscard]] bool Has(std::string_view name) const {
    return std::filesystem::exists(path_ / name);
  }

 private:
  std::filesystem::path path_;
};

}  // namespace sylvomex
