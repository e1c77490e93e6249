// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>

#include "platform/drive_map.h"

namespace sylvomex {

/// The file that a session is recorded into.
class RecordFile {
 public:
  /// Creates or empties it. RunTimeErrors of the file layer.
  explicit RecordFile(FilePath file);

  [[nodiscard]] std::ostream& Script() { return stream_; }
  [[nodiscard]] const FilePath& File() const { return file_; }

  /// False since a part of the record could not be written.
  [[nodiscard]] bool Is_Whole() const { return stream_.good(); }

 private:
  FilePath file_;
  std::ofstream stream_;
};

/// What to say of a record that is not whole.
inline constexpr const char* kRecordLost =
    "the record is not complete: it cannot be written, the disk may be full";

}  // namespace sylvomex
