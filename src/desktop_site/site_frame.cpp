// SPDX-License-Identifier: MIT
#include "desktop_site/site_frame.h"

#include "interchange/failures.h"
#include "interchange/site_text.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

std::filesystem::path Record_Of(const std::filesystem::path& root) { return root / "site.toml"; }

/// "EPSG:3067" as it is; of a system that is written out, only that there is one.
std::string Short_Name(const std::string& crs) {
  constexpr std::size_t kLongest = 16;
  return crs.size() <= kLongest ? crs : "world";
}

}  // namespace

bool Has_Site(const std::filesystem::path& root) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(Record_Of(root), ignored);
}

std::optional<WorldFrame> Frame_Of_Site(const std::filesystem::path& root) try {
  if (!Has_Site(root)) return std::nullopt;
  const std::filesystem::path file = Record_Of(root);
  const Site site = Parse_Site(Read_Whole_File({file.string(), file}), file.string());
  if (!site.shift) return std::nullopt;
  return WorldFrame{site.shift->X, site.shift->Y, Short_Name(site.crs)};
} catch (const Refused&) {
  return std::nullopt;
} catch (const RunTimeError&) {
  return std::nullopt;
}

}  // namespace sylvomex
