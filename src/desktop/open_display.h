// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <memory>
#include <string>

namespace sylvomex {

/// The message for standard error, one line. why: "" or a clause that begins with a comma.
std::string Display_Needed(const std::string& why);

/// The application on the display named by the environment. If that display does not respond, the
/// process ends with Display_Needed on standard error and the exit status of a failed start.
std::unique_ptr<QApplication> Open_Display(int& argc, char** argv);

}  // namespace sylvomex
