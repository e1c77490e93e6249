// SPDX-License-Identifier: MIT
// Storage of a raster's cells: zeros at first, and a cell costs memory only once it has been
// written, so that a header which promises more than its cell file holds does no harm.
#pragma once

#include <cstddef>
#include <span>

namespace sylvomex {

class CellArray {
 public:
  CellArray() = default;

  /// count cells of 0; std::bad_alloc when the machine cannot promise the room.
  explicit CellArray(std::size_t count);
  ~CellArray();

  CellArray(CellArray&& other) noexcept;
  CellArray& operator=(CellArray&& other) noexcept;
  CellArray(const CellArray&) = delete;
  CellArray& operator=(const CellArray&) = delete;

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  float& operator[](std::size_t position) { return cells_[position]; }
  const float& operator[](std::size_t position) const { return cells_[position]; }
  std::span<float> All() { return {cells_, size_}; }
  [[nodiscard]] std::span<const float> All() const { return {cells_, size_}; }

 private:
  float* cells_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace sylvomex
