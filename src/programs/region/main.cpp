// SPDX-License-Identifier: MIT
#include <csignal>
#include <iostream>

#include "region_program/region_program.h"

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is a failed write, not a kill
  return sylvomex::Run_Region_Program({argv + 1, argv + argc}, std::cout, std::cerr);
}
