// SPDX-License-Identifier: MIT
// Text files with one row a line, whose items do not run on into the next line.
#pragma once

#include "platform/list_reader.h"
#include "platform/number_text.h"

namespace sylvomex {

/// Calls read(line) with each line of a file as a list of its own; lines of blanks are passed over.
/// A line that ends too soon is the RunTimeError(InputPastEnd) of the list reader, which names
/// file, line and item.
template <class Read>
void For_Each_Line(const FilePath& file, Read&& read) {
  ListReader lines(file);
  while (!lines.At_End()) {
    const int number = lines.Line();
    const std::string text = lines.Read_Line();
    if (Without_Blanks_Around(text).empty()) continue;
    ListReader line(text, file, number);
    read(line);
  }
}

}  // namespace sylvomex
