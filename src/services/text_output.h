// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files.h"

namespace sylvomex {

/// A file whose text a command makes up as it goes, steps(text): the lines so far are written when
/// the command ends, however it ends.
template <class Steps>
void With_Text_File(const FilePath& file, Steps&& steps) {
  Write_Whole_File(file, "");
  std::string text;
  try {
    steps(text);
  } catch (...) {
    Write_Whole_File(file, text);
    throw;
  }
  Write_Whole_File(file, text);
}

/// The same for lines that go to the end of a file with one write. No text leaves the file alone.
template <class Steps>
void With_Appended_Lines(const FilePath& file, Steps&& steps) {
  std::string text;
  try {
    steps(text);
  } catch (...) {
    if (!text.empty()) Append_To_File(file, text);
    throw;
  }
  if (!text.empty()) Append_To_File(file, text);
}

}  // namespace sylvomex
