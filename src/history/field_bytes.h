// SPDX-License-Identifier: MIT
// Fields of the block as bytes and back. The bytes of two blocks are equal exactly when their
// fields are, bit for bit.
#pragma once

#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/colour.h"
#include "platform/fixed_text.h"
#include "platform/point3d.h"
#include "platform/table.h"
#include "solver/camera_model.h"

namespace sylvomex {

template <class T>
concept PlainValue = std::is_arithmetic_v<T> || std::is_enum_v<T>;

/// Calls visit(part) for each part of a compound value.
template <class Visit>
void Visit_Parts(Visit& visit, Point3D& point) {
  visit(point.X, point.Y, point.Z);
}
template <class Visit>
void Visit_Parts(Visit& visit, FilmPosition& film) {
  visit(film.x, film.y);
}
template <class Visit>
void Visit_Parts(Visit& visit, Colour& colour) {
  visit(colour.r, colour.g, colour.b);
}
template <class Visit, class T, int First, int Last>
void Visit_Parts(Visit& visit, Table<T, First, Last>& table) {
  for (T& entry : table) visit(entry);
}

/// Appends fields to a text of bytes.
class FieldWriter {
 public:
  explicit FieldWriter(std::string& bytes) : bytes_(bytes) {}

  template <class... Fields>
  void operator()(Fields&... fields) {
    (Write(fields), ...);
  }

 private:
  template <PlainValue T>
  void Write(T& value) {
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes_.append(raw, sizeof value);
  }
  void Write(std::string& text) { Write_Text(text); }
  template <std::size_t N>
  void Write(FixedText<N>& text) {
    Write_Text(text.Trimmed());
  }
  template <class T>
  void Write(std::vector<T>& entries) {
    std::size_t count = entries.size();
    Write(count);
    for (T& entry : entries) Write(entry);
  }
  template <class T>
  void Write(T& compound) {
    Visit_Parts(*this, compound);
  }
  void Write_Text(std::string_view text) {
    std::size_t length = text.size();
    Write(length);
    bytes_.append(text);
  }

  std::string& bytes_;
};

/// Gives fields the values that a FieldWriter wrote, in the same order.
class FieldReader {
 public:
  explicit FieldReader(std::string_view bytes) : bytes_(bytes) {}

  template <class... Fields>
  void operator()(Fields&... fields) {
    (Read(fields), ...);
  }

 private:
  template <PlainValue T>
  void Read(T& value) {
    std::memcpy(&value, bytes_.data(), sizeof value);
    bytes_.remove_prefix(sizeof value);
  }
  void Read(std::string& text) { text = Read_Text(); }
  template <std::size_t N>
  void Read(FixedText<N>& text) {
    text = Read_Text();
  }
  template <class T>
  void Read(std::vector<T>& entries) {
    std::size_t count = 0;
    Read(count);
    entries.resize(count);
    for (T& entry : entries) Read(entry);
  }
  template <class T>
  void Read(T& compound) {
    Visit_Parts(*this, compound);
  }
  std::string_view Read_Text() {
    std::size_t length = 0;
    Read(length);
    const std::string_view text = bytes_.substr(0, length);
    bytes_.remove_prefix(length);
    return text;
  }

  std::string_view bytes_;
};

}  // namespace sylvomex
