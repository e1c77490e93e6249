// SPDX-License-Identifier: MIT
#include "session/value_name.h"

#include <algorithm>
#include <charconv>

#include "workspace/operator_event.h"

namespace sylvomex {

namespace {

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

bool Is_Name_Character(char c) {
  return Is_Digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

[[noreturn]] void Refuse(std::string_view text) {
  throw UnknownName("\"" + std::string(text) + "\" is no name");
}

NamePart Split_Index(std::string_view text) {
  const std::size_t bracket = std::min(text.find('('), text.size());
  NamePart part{std::string(text.substr(0, bracket)), {}};
  if (part.name.empty() || !std::ranges::all_of(part.name, Is_Name_Character)) Refuse(text);
  if (bracket == text.size()) return part;
  int index = 0;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data() + bracket + 1, end, index);
  if (parsed.ec != std::errc() || std::string_view(parsed.ptr, end) != ")") Refuse(text);
  part.index = index;
  return part;
}

}  // namespace

std::vector<NamePart> Split_Name(std::string_view name) {
  std::vector<NamePart> parts;
  for (std::string_view rest = name;;) {
    const std::size_t dot = rest.find('.');
    parts.push_back(Split_Index(rest.substr(0, dot)));
    if (dot == std::string_view::npos) return parts;
    rest.remove_prefix(dot + 1);
  }
}

bool Is_Form_Name(std::string_view name) {
  constexpr std::string_view kForm = "Form";
  return name.starts_with(kForm) && name.size() > kForm.size() &&
         std::ranges::all_of(name.substr(kForm.size()), Is_Digit);
}

WindowName Split_Window(std::string_view name) {
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos || !Is_Form_Name(name.substr(0, dot))) {
    return {"Form1", std::string(name)};
  }
  return {std::string(name.substr(0, dot)), std::string(name.substr(dot + 1))};
}

}  // namespace sylvomex
