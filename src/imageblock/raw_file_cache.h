// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <memory>

#include "platform/drive_map.h"
#include "platform/files.h"

namespace sylvomex {

/// Keeps the raw files of the loaded images mapped, so that a zoom or pan costs no open. A
/// file that changed on disk is mapped anew. Holds the nine files used last.
class RawFileCache {
 public:
  /// The mapping stays valid until nine other files have been opened or the file is opened
  /// again after a change. RunTimeError(FileNotFound) and the like as MappedFile.
  const MappedFile& Open(const FilePath& file);

 private:
  std::list<std::unique_ptr<MappedFile>> files_;  // the one used last in front
};

}  // namespace sylvomex
