// SPDX-License-Identifier: MIT
#include "platform/name_below.h"

#include <algorithm>

#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr std::string_view kSeparators = "\\/";

bool Is_Letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool Begins_A_Path(std::string_view name) {
  if (name.empty()) return false;
  const bool has_drive = name.size() > 1 && Is_Letter(name[0]) && name[1] == ':';
  return has_drive || kSeparators.find(name.front()) != std::string_view::npos;
}

/// How many folders deeper a component leads.
int Depth_Of(std::string_view component) {
  if (component == "..") return -1;
  return component.empty() || component == "." ? 0 : 1;
}

}  // namespace

bool Stays_Below(std::string_view name) {
  name = Without_Blanks_Around(name);
  if (Begins_A_Path(name)) return false;
  int depth = 0;
  while (!name.empty() && depth >= 0) {
    const std::size_t end = std::min(name.find_first_of(kSeparators), name.size());
    depth += Depth_Of(name.substr(0, end));
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return depth >= 0;
}

}  // namespace sylvomex
