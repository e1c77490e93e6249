// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <memory>
#include <string>

namespace sylvomex {

/// One line for standard error. why: "" or a clause that begins with a comma.
std::string Display_Needed(const std::string& why);

/// The application on the display that the environment names. When that display does not answer,
/// the process ends with Display_Needed on standard error and the exit status of a failed start.
std::unique_ptr<QApplication> Open_Display(int& argc, char** argv);

}  // namespace sylvomex
