// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <new>

namespace sylvomex {

/// Memory for scratch arrays of some megabytes, on huge pages where the machine grants them:
/// the first touch of small pages costs more than a sort. Values are not set.
template <class T>
class ScratchPages {
 public:
  explicit ScratchPages(std::size_t count)
      : bytes_((count * sizeof(T) + kPage - 1) / kPage * kPage),
        memory_(::operator new (bytes_, std::align_val_t{kPage})) {
    static_cast<void>(madvise(memory_, bytes_, MADV_HUGEPAGE));
  }
  ~ScratchPages() { ::operator delete (memory_, std::align_val_t{kPage}); }
  ScratchPages(const ScratchPages&) = delete;
  ScratchPages& operator=(const ScratchPages&) = delete;

  [[nodiscard]] T* Data() { return static_cast<T*>(memory_); }

 private:
  static constexpr std::size_t kPage = std::size_t{1} << 21;

  std::size_t bytes_;
  void* memory_;
};

}  // namespace sylvomex
