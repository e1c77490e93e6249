// SPDX-License-Identifier: MIT
// A site's file; what is read of it is written and read once more.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "interchange/failures.h"
#include "interchange/site_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  sylvomex::Site site;
  try {
    site = sylvomex::Parse_Site(text, "site.toml");
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  const std::string written = sylvomex::Site_Text(site);
  if (sylvomex::Site_Text(sylvomex::Parse_Site(written, "site.toml")) != written) std::abort();
  return 0;
}
