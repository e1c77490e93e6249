// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// The separators with which the process writes and reads numbers. The system's own number
/// text always uses these; tests hand in others.
struct NumberSeparators {
  char decimal = '.';
  char list = ',';
};

/// Writes numbers to a scratch file and reads them back, with one message for each separator
/// that is not the one the system's files use. Only informs.
void Run_Locale_Test(Workspace& w, NumberSeparators separators = {});

}  // namespace sylvomex
