// SPDX-License-Identifier: MIT
#include "demo/chain/temporary_site.h"

#include <cstdlib>
#include <system_error>

#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

std::filesystem::path New_Folder(const std::string& prefix) {
  std::string name = (std::filesystem::temp_directory_path() / (prefix + "_XXXXXX")).string();
  if (mkdtemp(name.data()) == nullptr) throw RunTimeError(Failure::FileFailure, name, name);
  return name;
}

}  // namespace

TemporarySite::TemporarySite(const std::string& prefix) : path_(New_Folder(prefix)) {}

TemporarySite::~TemporarySite() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace sylvomex::demo
