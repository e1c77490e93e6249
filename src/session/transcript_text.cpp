// SPDX-License-Identifier: MIT
#include "session/transcript_text.h"

#include <array>

namespace sylvomex {

std::string One_Line(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
  }
  return line;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : One_Line(text)) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string Answer_Name(Answer answer) {
  constexpr std::array<const char*, 4> kNames{"ok", "cancel", "yes", "no"};
  return kNames[static_cast<std::size_t>(answer)];
}

}  // namespace sylvomex
