// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

#include "desktop/windows.h"

namespace sylvomex::bench {

/// The main function of a benchmark of windows: they are drawn into memory.
inline int Run_Without_Display(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  Set_Application_Look();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace sylvomex::bench
