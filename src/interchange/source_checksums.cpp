// SPDX-License-Identifier: MIT
#include "interchange/source_checksums.h"

#include <fstream>
#include <set>
#include <system_error>
#include <utility>

#include "interchange/import_transaction.h"

namespace sylvomex {

SourceChecksums::SourceChecksums(std::vector<std::filesystem::path> files)
    : files_(std::async(std::launch::async, [files = std::move(files), stop = stop_.get_token()] {
        return Source_Files(files, stop);
      })) {}

SourceChecksums::~SourceChecksums() { stop_.request_stop(); }

bool Sizes_Are_New(const std::vector<std::filesystem::path>& files,
                   const std::vector<SourceFile>& known) {
  std::set<std::uintmax_t> sizes;
  for (const SourceFile& file : known) {
    if (file.bytes == 0) return false;
    sizes.insert(file.bytes);
  }
  for (const std::filesystem::path& file : files) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || !std::ifstream(file) || !sizes.insert(size).second) return false;
  }
  return true;
}

}  // namespace sylvomex
