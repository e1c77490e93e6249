// SPDX-License-Identifier: MIT
// Conversion between numbers and text, independent of the process locale: the decimal separator is
// always a point.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sylvomex {

/// A number formatted by a pattern. '#' is an optional digit, '0' a fixed digit, '.' the decimal
/// point, '%' multiplies by 100 and is also printed; any other character is a literal around the
/// digits. The exact binary value is rounded to the decimals of the pattern, ties to even. Integer
/// digits beyond the pattern are always shown. The minus sign comes before everything; a value that
/// rounds to zero has none. "NaN" and "Inf" replace the digits. A pattern without digits gives its
/// literals only.
/// Format(0.5, "#.00") is ".50", Format(-0.5, "0.00") is "-0.50", Format(0, "#") is "".
std::string Format(double value, std::string_view pattern);

/// Shortest plain text with at most 15 (double) or 7 (float) significant digits, such as
/// "0.03", "2515000", "-1.5"; exponents ("1E+20", "1.5E-16") only where plain digits
/// would need more places than that.
std::string Plain_Text(double value);
std::string Plain_Text(float value);
std::string Plain_Text(std::int32_t value);

/// 17 significant digits, enough to read the same double back.
std::string Full_Text(double value);

/// Parses the whole text as a number: optional surrounding blanks, sign, digits with a point,
/// exponent. RunTimeError(TypeMismatch) quoting the text for anything else, including the
/// empty text; RunTimeError(Overflow) beyond the range of a double.
double Parse_Double(std::string_view text);

/// Parse_Double followed by the range-checked conversions of rounding.h.
std::int16_t Parse_Int16(std::string_view text);
std::int32_t Parse_Int32(std::string_view text);
std::uint8_t Parse_Byte(std::string_view text);

/// The text without the spaces and tabs before and after it.
std::string_view Without_Blanks_Around(std::string_view text);

/// A text in double quotes for use in messages: truncated after 40 characters with "...", control
/// characters replaced by '?'.
std::string Quoted_For_Message(std::string_view text);

}  // namespace sylvomex
