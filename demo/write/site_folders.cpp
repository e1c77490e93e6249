// SPDX-License-Identifier: MIT
#include "demo/write/site_folders.h"

#include <system_error>

#include "platform/run_time_error.h"

namespace sylvomex::demo {

void Create_Site_Folders(const std::filesystem::path& root) {
  for (const char* folder :
       {"c/apu", "c/data/demo", "c/data/exotics", "c/data/G6/ImaFiles", "c/data/ImaFiles",
        "c/data/Lehtomaa/Pistedata", "c/data/laser2004", "c/data/laser2006", "c/data/laser2007",
        "c/data/Tris", "c/data/vektorit", "c/temp", "d/data/laser", "e/lk", "e/ROVIK", "f/temp/AVI",
        "sessions"}) {
    std::error_code error;
    std::filesystem::create_directories(root / folder, error);
    if (error) {
      throw RunTimeError(Failure::PathNotFound, (root / folder).string() + ": " + error.message(),
                         root / folder);
    }
  }
}

}  // namespace sylvomex::demo
