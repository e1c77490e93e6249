// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sylvomex {

/// Runs one command line of sylvomex-region (without the program's name). Returns the exit status:
/// 0 done, 1 input refused, 2 the command line itself is wrong, 3 failed on the way, which includes
/// tasks that failed while others were done.
int Run_Region_Program(std::vector<std::string> words, std::ostream& out, std::ostream& err);

}  // namespace sylvomex
