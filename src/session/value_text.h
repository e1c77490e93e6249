// SPDX-License-Identifier: MIT
// Formatting of the block's values for a transcript: reals with 17 significant digits,
// integers plain, booleans 0 or -1, texts without trailing blanks, the entries of a table
// separated by blanks.
#pragma once

#include <concepts>
#include <string>

#include "platform/fixed_text.h"
#include "platform/number_text.h"
#include "platform/table.h"
#include "solver/space_intersection.h"
#include "state/control.h"

namespace sylvomex {

inline std::string Value_Text(double value) { return Full_Text(value); }

inline std::string Value_Text(float value) { return Full_Text(static_cast<double>(value)); }

template <std::integral Whole>
requires(!std::same_as<Whole, bool>) std::string Value_Text(Whole value) {
  return std::to_string(value);
}

template <std::same_as<bool> Truth>
std::string Value_Text(Truth value) {
  return value ? "-1" : "0";
}

inline std::string Value_Text(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

template <std::size_t N>
std::string Value_Text(const FixedText<N>& text) {
  return text.Trimmed();
}

/// Several values, separated by blanks; an empty value keeps its place.
template <class... Values>
std::string Value_Texts(const Values&... values) {
  std::string texts;
  ((texts += Value_Text(values) + " "), ...);
  texts.pop_back();
  return texts;
}

inline std::string Value_Text(const Point3D& point) {
  return Value_Texts(point.X, point.Y, point.Z);
}

inline std::string Value_Text(const Colour& colour) {
  return Value_Texts(colour.r, colour.g, colour.b);
}

template <class Value, int First, int Last>
std::string Value_Text(const Table<Value, First, Last>& table) {
  std::string texts;
  for (const Value& value : table) texts += Value_Text(value) + " ";
  texts.pop_back();
  return texts;
}

}  // namespace sylvomex
