// SPDX-License-Identifier: MIT
// Files composed by a command while it runs: what exists so far is written when the command ends,
// even by an error. A cancelled command leaves them as they were before it.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/work_meter.h"

namespace sylvomex {

/// Runs steps() and then write(), also when steps() throws a failure, which then propagates.
template <class Steps, class Write>
void Write_However_It_Ends(Steps&& steps, Write&& write) {
  try {
    steps();
  } catch (const Cancelled&) {
    throw;
  } catch (...) {
    write();
    throw;
  }
  write();
}

/// Runs steps(); when they are cancelled, the file gets its former content again, or is removed if
/// there was none. For files small enough to be held.
template <class Steps>
void Or_Former_File(const FilePath& file, Steps&& steps) {
  std::optional<std::string> former;
  if (Is_Work_Watched() && File_Exists(file)) former = Read_Whole_File(file);
  try {
    steps();
  } catch (const Cancelled&) {
    if (former) {
      Write_Whole_File(file, *former);
    } else {
      Delete_File(file);
    }
    throw;
  }
}

/// A text file, empty until steps(text) has returned.
template <class Steps>
void With_Text_File(const FilePath& file, Steps&& steps) {
  Or_Former_File(file, [&] {
    Write_Whole_File(file, "");
    std::string text;
    Write_However_It_Ends([&] { steps(text); }, [&] { Write_Whole_File(file, text); });
  });
}

/// Lines appended to a file with one write after steps(text) has returned. The file is not touched
/// when there is no text, or when the steps were cancelled.
template <class Steps>
void With_Appended_Lines(const FilePath& file, Steps&& steps) {
  std::string text;
  Write_However_It_Ends([&] { steps(text); },
                        [&] {
                          if (!text.empty()) Append_To_File(file, text);
                        });
}

}  // namespace sylvomex
