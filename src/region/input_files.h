// SPDX-License-Identifier: MIT
// What the files that tasks read were like when the region was planned. A task looks at size, times
// and inode of its files; where these differ, as on a copy of the site, the content decides.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

struct RegionPlan;
struct RegionTask;

/// What changes whenever a file is written to or replaced.
struct FileStamp {
  std::int64_t modified_ns = 0;  // of the content, since 1970
  std::int64_t changed_ns = 0;   // of content, name or rights
  std::uint64_t inode = 0;

  bool operator==(const FileStamp&) const = default;
};

struct FileContent {
  std::uint64_t bytes = 0;
  std::string checksum;  // SHA-256; empty where none was taken
  FileStamp stamp;
};

/// A header and the file that it names: an image's raster or a model's cells.
struct InputFiles {
  FileContent header, data;
};

/// Enters the files of the plan's tasks. takes_checksums: else files are told by size and time
/// alone. Refused for a file that cannot be read.
void Tell_Input_Files(RegionPlan& plan, bool takes_checksums);

/// Compares the files of tasks with the plan, those that were not touched at no cost.
class InputCheck {
 public:
  /// The plan must stay.
  explicit InputCheck(const RegionPlan& plan);

  /// RunTimeError that names the file and how it differs.
  void Require(const RegionTask& task);

 private:
  void Require_Image(int image);
  void Require_Pair(const std::string& header, const InputFiles& planned, bool is_image);
  void Require_File(const FilePath& file, const FileContent& planned);

  const RegionPlan& plan_;
  DriveMap drives_;
  std::map<std::string, FilePath> headers_, data_;  // by the headers' names
  std::map<std::string, FileStamp> known_;          // of files with the planned content, by path
};

}  // namespace sylvomex
