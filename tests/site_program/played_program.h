// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "site_program/site_program.h"

namespace sylvomex {

struct SitePlayed {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs one command line of sylvomex-site in this process.
inline SitePlayed Play_Site(std::vector<std::string> words) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = Run_Site_Program(std::move(words), out, err);
  return {status, out.str(), err.str()};
}

}  // namespace sylvomex
