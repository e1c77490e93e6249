// SPDX-License-Identifier: MIT
// The system's file names carry drive letters ("c:\data\pic0.bmp"). The drive map resolves them to
// paths on this machine.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

/// A file under the operator's name for it, and its path on this machine.
struct FilePath {
  std::string name;
  std::filesystem::path native;
};

class DriveMap {
 public:
  /// root: the folder whose sub-folders c, d, e, f hold the drives.
  explicit DriveMap(std::filesystem::path root);

  /// "c:\Data\pic0.bmp" resolves to root/c/data/pic0.bmp, component by component and without
  /// regard to case; components that do not exist keep their spelling. Blanks around the name
  /// are ignored and '/' works as '\'. A name that starts with '/' is a native path and is
  /// used unchanged. ".." cannot leave a drive. A name without a drive letter lies on
  /// drive c; the empty name gives an empty FilePath.
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
