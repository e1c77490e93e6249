// SPDX-License-Identifier: MIT
// What the file layer has to tell the operator although nothing failed. The dispatcher shows it
// when the command that is running has ended.
#pragma once

#include <string>
#include <vector>

namespace sylvomex {

/// Leaves one sentence for a message box.
void Leave_Notice(std::string text);

/// The sentences left since the last call, oldest first.
std::vector<std::string> Take_Notices();

}  // namespace sylvomex
