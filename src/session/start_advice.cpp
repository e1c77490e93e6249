// SPDX-License-Identifier: MIT
#include "session/start_advice.h"

namespace sylvomex {

std::string Start_Advice(const DriveMap& drives) {
  const std::filesystem::path folder = drives.Locate("c:\\data").native;
  std::error_code failure;
  if (std::filesystem::is_directory(folder, failure)) return {};
  return "There is no data folder " + folder.string() +
         ". Start with --root DIR, where DIR holds the drives c, d, e and f, or try the demo with "
         "./run demo.";
}

}  // namespace sylvomex
