// SPDX-License-Identifier: MIT
#include "desktop/open_display.h"

#include <cstdlib>
#include <iostream>

#include "session/step_end.h"

namespace sylvomex {
namespace {

// Runs before Qt aborts the process because it cannot open its display.
void End_Without_Display(QtMsgType kind, const QMessageLogContext&, const QString& text) {
  if (kind != QtFatalMsg) {
    std::cerr << text.toStdString() << '\n';
    return;
  }
  std::cerr << Display_Needed(
                   ", and the one that is set (DISPLAY, WAYLAND_DISPLAY) does not answer")
            << std::flush;
  std::_Exit(kStartFailed);
}

}  // namespace

std::string Display_Needed(const std::string& why) {
  return "the desktop needs a display" + why +
         "; without one, play a script: sylvomex --script FILE\n";
}

std::unique_ptr<QApplication> Open_Display(int& argc, char** argv) {
  const QtMessageHandler usual = qInstallMessageHandler(End_Without_Display);
  auto application = std::make_unique<QApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

}  // namespace sylvomex
