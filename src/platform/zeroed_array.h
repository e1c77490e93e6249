// SPDX-License-Identifier: MIT
// Large arrays of numbers, initially zero. An entry uses memory only once it has been written, so
// that a header which promises more than its file holds does no harm. The arrays lie on huge pages
// where the machine offers them, which avoids most address translations in scattered lookups.
#pragma once

#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace sylvomex {

/// Anonymous zero pages from the system; std::bad_alloc when the system cannot reserve them.
void* Map_Zeroed_Pages(std::size_t bytes);
void Unmap_Pages(void* pages, std::size_t bytes);

template <class T>
class ZeroedArray {
  static_assert(std::is_trivial_v<T>, "an entry is its bytes, all zero at first");

 public:
  ZeroedArray() = default;

  /// count zero entries; std::bad_alloc when the memory cannot be reserved.
  explicit ZeroedArray(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_alloc();
    if (count == 0) return;
    entries_ = static_cast<T*>(Map_Zeroed_Pages(count * sizeof(T)));
    size_ = count;
  }
  ~ZeroedArray() {
    if (entries_ != nullptr) Unmap_Pages(entries_, size_ * sizeof(T));
  }

  ZeroedArray(ZeroedArray&& other) noexcept
      : entries_(std::exchange(other.entries_, nullptr)), size_(std::exchange(other.size_, 0)) {}
  ZeroedArray& operator=(ZeroedArray&& other) noexcept {
    ZeroedArray taken(std::move(other));
    std::swap(entries_, taken.entries_);
    std::swap(size_, taken.size_);
    return *this;
  }
  ZeroedArray(const ZeroedArray&) = delete;
  ZeroedArray& operator=(const ZeroedArray&) = delete;

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  T& operator[](std::size_t position) { return entries_[position]; }
  const T& operator[](std::size_t position) const { return entries_[position]; }
  std::span<T> All() { return {entries_, size_}; }
  [[nodiscard]] std::span<const T> All() const { return {entries_, size_}; }

 private:
  T* entries_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace sylvomex
