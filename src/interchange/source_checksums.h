// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <future>
#include <stop_token>
#include <vector>

#include "interchange/site_record.h"

namespace sylvomex {

/// The checksums of an import's files, taken in a thread of their own while the import goes on.
class SourceChecksums {
 public:
  explicit SourceChecksums(std::vector<std::filesystem::path> files);
  /// Stops what is not done yet.
  ~SourceChecksums();
  SourceChecksums(const SourceChecksums&) = delete;
  SourceChecksums& operator=(const SourceChecksums&) = delete;

  /// Waits for them; once. Refused for a file that cannot be read.
  std::vector<SourceFile> Take() { return files_.get(); }

 private:
  std::stop_source stop_;
  std::future<std::vector<SourceFile>> files_;
};

/// Whether the sizes of readable files alone tell that they are new: none is that of a known file,
/// or of another of them.
bool Sizes_Are_New(const std::vector<std::filesystem::path>& files,
                   const std::vector<SourceFile>& known);

}  // namespace sylvomex
