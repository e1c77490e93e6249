// SPDX-License-Identifier: MIT
#include "services/line_count.h"

#include <algorithm>
#include <span>
#include <vector>

#include "platform/files.h"
#include "platform/work_meter.h"

namespace sylvomex {

double Lines_To_Come(const FilePath& file) {
  constexpr std::size_t kRead = std::size_t{1} << 20;
  if (!Is_Work_Watched()) return 0;
  const PositionalFile content(file);
  std::vector<std::uint8_t> bytes(kRead);
  std::int64_t lines = 0;
  std::size_t got = kRead;
  for (std::int64_t at = 0; got == kRead; at += static_cast<std::int64_t>(kRead)) {
    got = content.Read_At(at, bytes);
    lines += std::ranges::count(std::span(bytes).first(got), std::uint8_t{'\n'});
  }
  return static_cast<double>(lines);
}

}  // namespace sylvomex
