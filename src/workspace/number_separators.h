// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// The separators with which the process writes and reads numbers. The system's own number text
/// always uses the defaults; tests pass others.
struct NumberSeparators {
  char decimal = '.';
  char list = ',';
};

/// Writes numbers to a scratch file and reads them back; shows one message for each separator that
/// differs from that of the system's files. It only informs.
void Run_Locale_Test(Workspace& w, NumberSeparators separators = {});

}  // namespace sylvomex
