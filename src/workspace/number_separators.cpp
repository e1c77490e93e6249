// SPDX-License-Identifier: MIT
#include "workspace/number_separators.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/guest_files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kScratchFile = "C:\\Data\\PILKKUTESTI.TXT";

std::string First_Line(char decimal) {
  std::string line = Format(1.0, "#.0");
  std::replace(line.begin(), line.end(), '.', decimal);
  return line + "\n";
}

// Splits at the settings' list separator, as the list reader does at a comma.
bool Reads_One_Two_Three(std::string line, char list) {
  std::replace(line.begin(), line.end(), ',', '\x1f');
  std::replace(line.begin(), line.end(), list == ',' ? '\x1f' : list, ',');
  ListReader reader(line, kScratchFile);
  try {
    return reader.Read_Int32() == 1 && reader.Read_Int32() == 2 && reader.Read_Int32() == 3;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace

void Run_Locale_Test(Workspace& w, NumberSeparators separators) {
  const FilePath scratch = Scratch_File(w.Drives, kScratchFile);
  Write_Whole_File(scratch, First_Line(separators.decimal) + "1,2,3\n");
  ListReader reader(scratch);
  const std::string number = reader.Read_Line();
  if (number.size() < 2 || number[1] != '.') {
    Show_With_Cause(w, "SYLVOMEX requires the use of point as decimal separator",
                    "the number 1.0 is read as " + Quoted_For_Message(number));
  }
  if (!Reads_One_Two_Three(reader.Read_Line(), separators.list)) {
    Show_With_Cause(w, "SYLVOMEX requires the use of comma as list separator",
                    std::string("the list separator of the settings is ") + separators.list);
  }
  Delete_File(Scratch_File(w.Drives, "c:\\data\\pilkkutesti.txt"));
}

}  // namespace sylvomex
