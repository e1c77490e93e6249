// SPDX-License-Identifier: MIT
// The first byte chooses the format; the rest is the table, behind a line of '=' the camera file.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "interchange/convention_finder.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace {

const char* const kFormats[] = {"", "plain", "angles", "frames", "text-model", "shots"};

void Read(const std::string& format, const std::string& text) {
  const std::size_t cut = text.find("\n=\n");
  const sylvomex::NamedText table{text.substr(0, cut), "table"};
  sylvomex::NamedText cameras;
  if (cut != std::string::npos) cameras = {text.substr(cut + 3), "cameras"};
  const auto parsed = sylvomex::Parse_Orientation_Table(table, cameras, format);
  for (const sylvomex::PhotoGiven& photo : parsed.photos) {
    if (!std::isfinite(sylvomex::Understood(photo, parsed.stated).f_mm)) std::abort();
  }
  sylvomex::Parse_Known_Points(table);
  sylvomex::Parse_Observations(table, parsed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    Read(kFormats[data[0] % std::size(kFormats)], text);
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  return 0;
}
