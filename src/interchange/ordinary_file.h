// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "interchange/failures.h"

namespace sylvomex {

/// Refused for a pipe or a device, of which a reader would wait for bytes or never come to an end.
/// What is missing or a folder is left to the reader.
inline void Require_No_Device(const std::filesystem::path& file) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const fs::file_status status = fs::status(file, ignored);
  if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status)) {
    throw Refused(file.string() + ": the file cannot be read: it is not an ordinary file");
  }
}

}  // namespace sylvomex
