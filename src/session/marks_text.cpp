// SPDX-License-Identifier: MIT
#include "session/marks_text.h"

#include "session/transcript_text.h"
#include "session/value_text.h"

namespace sylvomex {

namespace {

std::string Printed_Text(const MarkText& printed) {
  return Quoted(printed.text) + " " + Quoted(printed.font.name) + " " +
         Value_Text(printed.font.size) + (printed.font.bold ? " bold" : " plain");
}

}  // namespace

std::string Mark_Text(const Picture& picture, const Mark& mark) {
  switch (mark.kind) {
    case Mark::Kind::Line:
      return "line " + Value_Texts(mark.x1, mark.y1, mark.x2, mark.y2, mark.colour, mark.width);
    case Mark::Kind::Text: {
      const MarkText& printed = picture.texts.at(static_cast<std::size_t>(mark.text));
      return "text " + Value_Texts(mark.x1, mark.y1) + " " + Printed_Text(printed) + " " +
             Value_Text(mark.colour);
    }
    case Mark::Kind::Point:
      break;
  }
  return "point " + Value_Texts(mark.x1, mark.y1, mark.colour, mark.width);
}

}  // namespace sylvomex
