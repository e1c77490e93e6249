// SPDX-License-Identifier: MIT
// From the start of the process to the first whole frame of the desktop with its aids, on the
// present display, and from there to the frame with everything that a script loads. Goal: 1 s.
//
//   bench_desktop_start SITE SCRIPT
#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "desktop/open_display.h"
#include "desktop_aids/aids.h"
#include "desktop_aids/remembered.h"

namespace {

using namespace sylvomex;

/// Since the kernel began the process; in hundredths, as it keeps that moment.
double Seconds_Of_Process() {
  std::ifstream file("/proc/self/stat");
  std::string text((std::istreambuf_iterator<char>(file)), {});
  std::istringstream words(text.substr(text.rfind(')') + 2));
  std::string word;
  for (int k = 3; k < 22; ++k) words >> word;
  double ticks = 0;
  words >> ticks;
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec) -
         ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// Until nothing is left to be painted.
void Paint_All(FormWindow& main) {
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
  main.repaint();
  QApplication::sync();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "bench_desktop_start SITE SCRIPT\n";
    return 1;
  }
  int one = 1;
  const auto application = Open_Display(one, argv);
  Set_Look_Of_Machine();
  Desktop desktop({DriveMap(argv[1]), std::nullopt, {}, [] {}, false});
  desktop.Start();
  Aids aids(desktop);
  const Remembered remembered(desktop, aids,
                              QString::fromLocal8Bit(argv[1]) + QStringLiteral("/desktop.ini"));
  Paint_All(desktop.Shown().Main());
  const double first = Seconds_Of_Process();
  desktop.Begin_With(argv[2]);
  Paint_All(desktop.Shown().Main());
  std::printf("first frame %.2f s, with everything loaded %.2f s\n", first, Seconds_Of_Process());
  std::fflush(stdout);
  return 0;
}
