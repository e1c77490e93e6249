// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

namespace sylvomex {

/// Memory of large tables on huge pages where the machine grants them: scattered lookups then
/// find their pages at once.
template <class T>
struct HugePages {
  using value_type = T;

  HugePages() = default;
  template <class Other>
  explicit HugePages(const HugePages<Other>&) {}

  T* allocate(std::size_t count) {
    const std::size_t bytes = count * sizeof(T);
    void* memory = ::operator new(bytes, Alignment(bytes));
    if (bytes >= kPage) static_cast<void>(madvise(memory, bytes, MADV_HUGEPAGE));
    return static_cast<T*>(memory);
  }
  void deallocate(T* memory, std::size_t count) {
    ::operator delete(memory, Alignment(count * sizeof(T)));
  }
  bool operator==(const HugePages&) const = default;

 private:
  static constexpr std::size_t kPage = std::size_t{1} << 21;
  static std::align_val_t Alignment(std::size_t bytes) {
    return std::align_val_t{bytes >= kPage ? kPage : std::max(alignof(T), std::size_t{64})};
  }
};

template <class T>
using HugePageVector = std::vector<T, HugePages<T>>;

}  // namespace sylvomex
