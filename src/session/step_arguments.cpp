// SPDX-License-Identifier: MIT
#include "session/step_arguments.h"

#include <cctype>
#include <charconv>
#include <cmath>

#include "session/step_end.h"
#include "session/transcript_text.h"

namespace sylvomex {

namespace {

template <class Number>
Number Whole_Text_As(const std::string& text, const char* kind) {
  Number number{};
  const char* const end = text.data() + text.size();
  const bool has_plus = text.starts_with('+') && !text.starts_with("+-");
  const auto parsed = std::from_chars(text.data() + (has_plus ? 1 : 0), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) {
    throw StepEnd{kStepFailed, Quoted(text) + " is no " + kind};
  }
  return number;
}

bool Has_Drive(std::string_view name) {
  return name.size() > 1 && std::isalpha(static_cast<unsigned char>(name[0])) != 0 &&
         name[1] == ':';
}

}  // namespace

double Real_Argument(const std::string& text) {
  const double number = Whole_Text_As<double>(text, "number");
  if (!std::isfinite(number)) throw StepEnd{kStepFailed, Quoted(text) + " is no finite number"};
  return number;
}

long Whole_Argument(const std::string& text) { return Whole_Text_As<long>(text, "whole number"); }

std::filesystem::path File_Argument(const DriveMap& drives, std::string_view name) {
  return Has_Drive(name) ? drives.Locate(name).native : std::filesystem::path(name);
}

}  // namespace sylvomex
