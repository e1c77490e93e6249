// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/drive_map.h"
#include "platform/file_descriptor.h"

namespace sylvomex {

/// A text file that is written anew, line by line, and held open meanwhile. What was written is
/// in the file at once, whatever becomes of the program. RunTimeError as of Write_Whole_File.
class LineFile {
 public:
  explicit LineFile(const FilePath& file);

  /// Writes whole lines with one write.
  void Write(std::string_view lines);

  /// Flushes to the disk and closes.
  void Close();

 private:
  FilePath file_;
  FileDescriptor open_file_;
};

}  // namespace sylvomex
