// SPDX-License-Identifier: MIT
#include "demo/table/truth_file.h"

#include <algorithm>
#include <sstream>

#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

std::vector<std::string> Split_At_Commas(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, ',');) fields.push_back(field);
  return fields;
}

}  // namespace

std::size_t TruthFile::Column(const std::string& name) const {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) {
    throw RunTimeError(Failure::BadContent, file.name + ": no column " + name, file.native);
  }
  return static_cast<std::size_t>(found - names.begin());
}

TruthFile Read_Truth_File(const FilePath& file) {
  TruthFile truth{file, {}, {}};
  std::istringstream stream(Read_Whole_File(file));
  std::string line;
  std::getline(stream, line);
  truth.names = Split_At_Commas(line);
  for (int number = 2; std::getline(stream, line); ++number) {
    truth.lines.push_back(Split_At_Commas(line));
    if (truth.lines.back().size() == truth.names.size()) continue;
    throw RunTimeError(Failure::BadContent,
                       file.name + ", line " + std::to_string(number) + ": " +
                           std::to_string(truth.lines.back().size()) +
                           " fields, the first line has " + std::to_string(truth.names.size()),
                       file.native);
  }
  return truth;
}

}  // namespace sylvomex::demo
