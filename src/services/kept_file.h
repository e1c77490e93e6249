// SPDX-License-Identifier: MIT
// Files composed by a command while it runs: what exists so far is written when the command ends,
// even by an error.
#pragma once

#include <string>

#include "platform/files.h"

namespace sylvomex {

/// Runs steps() and then write(), also when steps() throws; the exception then propagates.
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

/// A text file, empty until steps(text) has returned.
template <class Steps>
void With_Text_File(const FilePath& file, Steps&& steps) {
  Write_Whole_File(file, "");
  std::string text;
  Write_However_It_Ends([&] { steps(text); }, [&] { Write_Whole_File(file, text); });
}

/// Lines appended to a file with one write after steps(text) has returned. The file is not touched
/// when there is no text.
template <class Steps>
void With_Appended_Lines(const FilePath& file, Steps&& steps) {
  std::string text;
  Write_However_It_Ends([&] { steps(text); },
                        [&] {
                          if (!text.empty()) Append_To_File(file, text);
                        });
}

}  // namespace sylvomex
