// SPDX-License-Identifier: MIT
#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "platform/characters.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {

namespace {

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

std::string Name_Of_Non_Finite(double value) {
  if (std::isnan(value)) return "NaN";
  return value < 0 ? "-Inf" : "Inf";
}

/// A magnitude as d.ddd x 10^exponent, without trailing zeros.
struct ScientificDigits {
  std::string digits;
  int exponent = 0;
};

ScientificDigits Take_Digits(double magnitude, int count) {
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                 std::chars_format::scientific, count - 1)
                       .ptr;
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  const std::size_t mark = text.find('e');
  ScientificDigits number{std::string(text.substr(0, 1)), 0};
  number.digits += text.substr(2, mark - 2);
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  const std::size_t sign = text[mark + 1] == '+' ? 1 : 0;
  std::from_chars(buffer + mark + 1 + sign, end, number.exponent);
  return number;
}

std::string With_Exponent(const ScientificDigits& number) {
  std::string text = number.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  const int power = std::abs(number.exponent);
  text += number.exponent < 0 ? "E-" : "E+";
  if (power < 10) text += '0';
  return text + std::to_string(power);
}

std::string With_Plain_Digits(const ScientificDigits& number) {
  std::string text = number.digits;
  if (number.exponent < 0) {
    text.insert(0, static_cast<std::size_t>(-number.exponent - 1), '0');
    return text.insert(0, "0.");
  }
  const std::size_t whole = static_cast<std::size_t>(number.exponent) + 1;
  if (text.size() < whole) text.append(whole - text.size(), '0');
  if (text.size() > whole) text.insert(whole, 1, '.');
  return text;
}

/// places: how many digits a plain number may have before the point, and how many after it.
std::string Plain_Text_In_Places(double value, int places) {
  if (!std::isfinite(value)) return Name_Of_Non_Finite(value);
  if (value == 0) return "0";
  const ScientificDigits number = Take_Digits(std::fabs(value), places);
  const int decimals = static_cast<int>(number.digits.size()) - 1 - number.exponent;
  const bool plain = number.exponent < places && decimals <= places;
  std::string text = value < 0 ? "-" : "";
  return text += plain ? With_Plain_Digits(number) : With_Exponent(number);
}

/// A pattern split into the literal text before, the digits, and the literal text after.
struct PatternParts {
  std::string_view before;
  std::string_view after;
  bool has_digits = false;
  bool has_point = false;
  bool percent = false;
  int least_whole = 0;
  int least_decimals = 0;
  int most_decimals = 0;
};

bool Is_Placeholder(char c) { return c == '#' || c == '0'; }

PatternParts Take_Apart(std::string_view pattern) {
  PatternParts parts;
  parts.percent = pattern.find('%') != std::string_view::npos;
  std::size_t first = pattern.find_first_of("#0");
  if (first == std::string_view::npos) {
    parts.before = pattern;
    return parts;
  }
  parts.has_digits = true;
  if (first > 0 && pattern[first - 1] == '.') --first;
  parts.before = pattern.substr(0, first);
  std::size_t at = first;
  for (; at < pattern.size() && Is_Placeholder(pattern[at]); ++at) {
    if (pattern[at] == '0' || parts.least_whole > 0) ++parts.least_whole;
  }
  if (at < pattern.size() && pattern[at] == '.') {
    parts.has_point = true;
    for (++at; at < pattern.size() && Is_Placeholder(pattern[at]); ++at) {
      ++parts.most_decimals;
      if (pattern[at] == '0') parts.least_decimals = parts.most_decimals;
    }
  }
  parts.after = pattern.substr(at);
  return parts;
}

std::string Fixed_Digits(double magnitude, int decimals) {
  constexpr std::size_t kLongestWhole = 310;  // digits of the largest double
  std::string text(kLongestWhole + static_cast<std::size_t>(decimals) + 1, '\0');
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                 std::chars_format::fixed, decimals)
                       .ptr;
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

/// Fits the rounded digits to the pattern: pads with leading zeros for '0', drops zeros for '#'.
std::string Lay_Out_Digits(const PatternParts& parts, const std::string& digits) {
  const std::size_t point = digits.find('.');
  std::string whole = digits.substr(0, point);
  std::string decimals = point == std::string::npos ? "" : digits.substr(point + 1);
  if (whole == "0") whole.clear();
  const auto least_whole = static_cast<std::size_t>(parts.least_whole);
  if (whole.size() < least_whole) whole.insert(0, least_whole - whole.size(), '0');
  while (decimals.size() > static_cast<std::size_t>(parts.least_decimals) &&
         decimals.back() == '0') {
    decimals.pop_back();
  }
  return parts.has_point ? whole + "." + decimals : whole;
}

/// True for digits with at most one point and an optional exponent, without a sign.
bool Is_Unsigned_Number(std::string_view text) {
  std::size_t at = 0;
  std::size_t digits = 0;
  for (; at < text.size() && Is_Digit(text[at]); ++at) ++digits;
  if (at < text.size() && text[at] == '.') {
    for (++at; at < text.size() && Is_Digit(text[at]); ++at) ++digits;
  }
  if (digits == 0) return false;
  if (at == text.size()) return true;
  if (text[at] != 'e' && text[at] != 'E') return false;
  ++at;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  return at < text.size() && text.find_first_not_of("0123456789", at) == std::string_view::npos;
}

/// For a number outside the range of a double: true when it is too large, false when it is too
/// small (underflow).
bool Is_Too_Large(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t leading = mantissa.find_first_not_of("0.");
  double exponent = 0;  // even a huge exponent keeps its sign and magnitude as a double
  for (std::size_t at = mark; at < number.size(); ++at) {
    if (Is_Digit(number[at])) exponent = exponent * 10 + (number[at] - '0');
  }
  if (number.find('-', mark) != std::string_view::npos) exponent = -exponent;
  return static_cast<double>(point) - static_cast<double>(leading) + exponent > 0;
}

[[noreturn]] void Throw_Not_A_Number(std::string_view text) {
  throw RunTimeError(
      Failure::TypeMismatch,
      (text.empty() ? "an empty text" : Quoted_For_Message(text)) + " is not a number");
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  const PatternParts parts = Take_Apart(pattern);
  if (!parts.has_digits) return std::string(parts.before);
  const double shown = parts.percent ? value * 100 : value;
  std::string digits;
  bool minus = shown < 0;
  if (std::isfinite(shown)) {
    const std::string rounded = Fixed_Digits(std::fabs(shown), parts.most_decimals);
    minus = minus && rounded.find_first_not_of("0.") != std::string::npos;
    digits = Lay_Out_Digits(parts, rounded);
  } else {
    digits = Name_Of_Non_Finite(std::fabs(shown));
  }
  std::string text = minus ? "-" : "";
  text += parts.before;
  text += digits;
  return text += parts.after;
}

std::string Plain_Text(double value) { return Plain_Text_In_Places(value, 15); }

std::string Plain_Text(float value) { return Plain_Text_In_Places(double{value}, 7); }

std::string Plain_Text(std::int32_t value) { return std::to_string(value); }

std::string Full_Text(double value) {
  if (!std::isfinite(value)) return Name_Of_Non_Finite(value);
  char buffer[40];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 17).ptr;
  return {buffer, end};
}

double Parse_Double(std::string_view text) {
  const std::string_view number = Without_Blanks_Around(text);
  const bool has_sign = !number.empty() && (number[0] == '+' || number[0] == '-');
  const std::string_view unsigned_number = number.substr(has_sign ? 1 : 0);
  if (!Is_Unsigned_Number(unsigned_number)) Throw_Not_A_Number(number);
  double value = 0;
  const auto result = std::from_chars(unsigned_number.data(),
                                      unsigned_number.data() + unsigned_number.size(), value);
  if (result.ec == std::errc::result_out_of_range || !std::isfinite(value)) {
    if (Is_Too_Large(unsigned_number)) {
      throw RunTimeError(Failure::Overflow, Quoted_For_Message(number) + " is too large");
    }
    value = 0;
  }
  return has_sign && number[0] == '-' ? -value : value;
}

std::int16_t Parse_Int16(std::string_view text) { return To_Int16(Parse_Double(text)); }

std::int32_t Parse_Int32(std::string_view text) { return To_Int32(Parse_Double(text)); }

std::uint8_t Parse_Byte(std::string_view text) { return To_Byte(Parse_Double(text)); }

std::string_view Without_Blanks_Around(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Quoted_For_Message(std::string_view text) {
  constexpr std::size_t kLongest = 40;
  std::string shown = "\"";
  const std::string_view start = Left_Characters(text, kLongest);
  for (const char c : start) {
    const bool is_control = static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
    shown += is_control ? '?' : c;
  }
  shown += text.size() > start.size() ? "...\"" : "\"";
  return shown;
}

}  // namespace sylvomex
