// SPDX-License-Identifier: MIT
#include "imageblock/raw_file_cache.h"

#include <algorithm>

namespace sylvomex {
namespace {

constexpr std::size_t kMostFiles = 9;

}  // namespace

const MappedFile& RawFileCache::Open(const FilePath& file) {
  const auto held = std::find_if(files_.begin(), files_.end(), [&](const auto& entry) {
    return entry->File().native == file.native;
  });
  if (held != files_.end() && (*held)->Is_Current()) {
    files_.splice(files_.begin(), files_, held);
    return *files_.front();
  }
  if (held != files_.end()) files_.erase(held);
  files_.push_front(std::make_unique<MappedFile>(file));
  if (files_.size() > kMostFiles) files_.pop_back();
  return *files_.front();
}

}  // namespace sylvomex
