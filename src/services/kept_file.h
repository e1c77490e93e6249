// SPDX-License-Identifier: MIT
// Files whose content a command makes up as it goes: what there is so far is written when the
// command ends, however it ends.
#pragma once

#include <string>

#include "platform/files.h"

namespace sylvomex {

/// Runs steps() and then write(), also when a failure ends the steps, which then goes on.
template <class Steps, class Write>
void Write_However_It_Ends(Steps&& steps, Write&& write) {
  try {
    steps();
  } catch (...) {
    write();
    throw;
  }
  write();
}

/// A text file, empty until steps(text) has ended.
template <class Steps>
void With_Text_File(const FilePath& file, Steps&& steps) {
  Write_Whole_File(file, "");
  std::string text;
  Write_However_It_Ends([&] { steps(text); }, [&] { Write_Whole_File(file, text); });
}

/// Lines that go to the end of a file with one write when steps(text) has ended. No text leaves
/// the file alone.
template <class Steps>
void With_Appended_Lines(const FilePath& file, Steps&& steps) {
  std::string text;
  Write_However_It_Ends([&] { steps(text); },
                        [&] {
                          if (!text.empty()) Append_To_File(file, text);
                        });
}

}  // namespace sylvomex
