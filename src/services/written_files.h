// SPDX-License-Identifier: MIT
// What a command wrote and where, for the operator.
#pragma once

#include <string>
#include <vector>

#include "platform/write_witness.h"

namespace sylvomex {

class WrittenFiles : public WriteWitness {
 public:
  void Will_Change(const FilePath& file, bool appends) override;
  void Has_Appended(const FilePath& file, std::string_view text) override;

  /// "1 line added to c:\data\a.txt; c:\data\sun.txt written", in the order of writing, at most
  /// three files and "and 4 more"; empty when nothing was written since the last call. Scratch
  /// files of the panes, of the templates and of the start are left out, and what no longer exists.
  std::string Take();

 private:
  struct Written {
    FilePath file;
    bool whole = false;  // written as a whole
    long lines = 0;      // added
  };
  Written& Entry(const FilePath& file);

  std::vector<Written> files_;
};

}  // namespace sylvomex
