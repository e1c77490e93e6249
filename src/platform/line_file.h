// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string_view>

#include "platform/drive_map.h"
#include "platform/file_descriptor.h"

namespace sylvomex {

/// A text file that is rewritten line by line and stays open meanwhile. Each line reaches the file
/// at once, even if the program ends abnormally. Throws as Write_Whole_File does.
class LineFile {
 public:
  explicit LineFile(const FilePath& file);

  /// Writes whole lines with one write. What was written in part is taken back.
  void Write(std::string_view lines);

  /// Flushes to the disk and closes.
  void Close();

 private:
  [[noreturn]] void Take_Back(off_t written, int error);

  FilePath file_;
  FileDescriptor open_file_;
};

}  // namespace sylvomex
