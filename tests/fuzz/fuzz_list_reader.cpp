// SPDX-License-Identifier: MIT
// The first byte selects the sequence of reads; the rest is the file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace {

void Read_Next(sylvomex::ListReader& list, unsigned choice) {
  switch (choice % 9) {
    case 0:
      list.Read_Double();
      break;
    case 1:
      list.Read_Float();
      break;
    case 2:
      list.Read_Int32();
      break;
    case 3:
      list.Read_Int16();
      break;
    case 4:
      list.Read_Byte();
      break;
    case 5:
      list.Read_Text();
      break;
    case 6:
      list.Read_Text_To_Comma();
      break;
    case 7:
      list.Read_Line();
      break;
    default:
      list.Skip_Line();
  }
}

/// Every text is either a number, which reads back from its full text, or is rejected.
void Parse_And_Write(const std::string& text) {
  try {
    const double value = sylvomex::Parse_Double(text);
    if (sylvomex::Parse_Double(sylvomex::Full_Text(value)) != value) std::abort();
    sylvomex::Parse_Double(sylvomex::Plain_Text(value));
    sylvomex::Format(value, text);
  } catch (const sylvomex::RunTimeError&) {
    sylvomex::Format(-1234.5, text.substr(0, 200));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  unsigned choice = data[0];
  const std::string content(data + 1, data + size);
  Parse_And_Write(content);
  sylvomex::ListReader list(content, "c:\\data\\fuzz.txt");
  // Every read consumes something or throws, so twice the length is enough.
  for (std::size_t reads = 0; !list.At_End(); ++reads) {
    if (reads > 2 * size + 2) std::abort();
    try {
      Read_Next(list, choice);
    } catch (const sylvomex::RunTimeError&) {
      list.Skip_Line();
    }
    choice = choice * 5 + 3;
  }
  return 0;
}
