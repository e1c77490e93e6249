// SPDX-License-Identifier: MIT
#include "interchange/record_lines.h"

#include <algorithm>

#include "interchange/failures.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

std::string Content_Of(const FilePath& file) try {
  return Read_Whole_File(file);
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace

void For_Each_Line(const FilePath& file,
                   const std::function<void(std::string_view, const std::string&)>& take) {
  const std::string content = Content_Of(file);
  std::string_view rest(content);
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (Without_Blanks_Around(line).empty()) continue;
    take(line, file.name + ", line " + std::to_string(number));
  }
}

}  // namespace sylvomex
