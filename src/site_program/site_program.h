// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sylvomex {

/// Runs one command line (without the program's name). Returns the exit status: 0 done, 1 input
/// refused, 2 the command line itself is wrong, 3 failed on the way.
int Run_Site_Program(std::vector<std::string> words, std::ostream& out, std::ostream& err);

}  // namespace sylvomex
