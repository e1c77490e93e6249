// SPDX-License-Identifier: MIT
#include "session/value_compare.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace sylvomex {

namespace {

constexpr double kTolerance = 1e-9;  // relative to the larger magnitude

/// The numbers of a text that consists only of numbers and blanks.
std::optional<std::vector<double>> Numbers_Of(std::string_view text) {
  std::vector<double> numbers;
  for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;
       at = text.find_first_not_of(' ', at)) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    double number = 0;
    const auto parsed = std::from_chars(text.data() + at, text.data() + end, number);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + end) return std::nullopt;
    numbers.push_back(number);
    at = end;
  }
  return numbers;
}

bool Numbers_Agree(double a, double b) {
  return a == b || std::abs(a - b) <= kTolerance * std::max(std::abs(a), std::abs(b));
}

}  // namespace

bool Values_Agree(std::string_view value, std::string_view expected) {
  if (value == expected) return true;
  const auto numbers = Numbers_Of(value);
  const auto expected_numbers = Numbers_Of(expected);
  if (!numbers || !expected_numbers || numbers->empty()) return false;
  return std::ranges::equal(*numbers, *expected_numbers, Numbers_Agree);
}

}  // namespace sylvomex
