// SPDX-License-Identifier: MIT
// File names of the system carry drive letters ("c:\data\pic0.bmp"). The drive map finds
// where they lie on this machine.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

/// A file as the operator names it and where it lies.
struct FilePath {
  std::string name;
  std::filesystem::path native;
};

class DriveMap {
 public:
  /// root: the folder that holds the drives as sub-folders c, d, e, f.
  explicit DriveMap(std::filesystem::path root);

  /// "c:\Data\pic0.bmp" lies at root/c/data/pic0.bmp, found without regard to case,
  /// component by component; components that do not exist are taken as spelled. Blanks
  /// around the name do not count, '/' serves as '\'. A name that starts with '/' is
  /// native and taken as it stands. ".." never climbs out of a drive. A name without a drive
  /// letter lies on drive c; the empty name gives an empty FilePath.
  [[nodiscard]] FilePath Locate(std::string_view name) const;

  /// The name under which a native path is known here: "c:\data\a.hdr" when it lies on one of the
  /// drives, else the path itself. The inverse of Locate.
  [[nodiscard]] std::string Drive_Name(const std::filesystem::path& native) const;

  /// Files that match a pattern with '*' and '?' in its last component, sorted by name,
  /// without regard to case. A folder that does not exist gives none.
  [[nodiscard]] std::vector<FilePath> Match(std::string_view pattern) const;

  [[nodiscard]] const std::filesystem::path& Root() const { return root_; }

 private:
  std::filesystem::path root_;
};

}  // namespace sylvomex
