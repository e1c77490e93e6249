// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex::demo {

/// The fields of truth.csv as text.
struct TruthFile {
  FilePath file;
  std::vector<std::string> names;               // of the columns
  std::vector<std::vector<std::string>> lines;  // as many fields as names

  /// Index of a column; RunTimeError(BadContent) naming the file and the column when it is missing.
  [[nodiscard]] std::size_t Column(const std::string& name) const;
};

/// RunTimeError(BadContent) naming the file and the line for a wrong number of fields.
TruthFile Read_Truth_File(const FilePath& file);

}  // namespace sylvomex::demo
