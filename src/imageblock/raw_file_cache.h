// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <memory>

#include "platform/drive_map.h"
#include "platform/files.h"

namespace sylvomex {

/// Keeps the raw files of the loaded images mapped, so that a zoom or pan need not open them. A
/// file that changed on disk is mapped again. Holds the nine most recently used files.
class RawFileCache {
 public:
  /// The mapping stays valid until nine other files have been opened or the file is opened again
  /// after a change. Throws as MappedFile does, e.g. RunTimeError(FileNotFound).
  const MappedFile& Open(const FilePath& file);

 private:
  std::list<std::unique_ptr<MappedFile>> files_;  // most recently used first
};

}  // namespace sylvomex
