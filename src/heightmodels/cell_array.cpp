// SPDX-License-Identifier: MIT
#include "heightmodels/cell_array.h"

#include <sys/mman.h>

#include <new>
#include <utility>

namespace sylvomex {

CellArray::CellArray(std::size_t count) {
  if (count == 0) return;
  const std::size_t bytes = count * sizeof(float);
  void* const pages =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) throw std::bad_alloc();
  // Huge pages spare scattered lookups most of their address translations. Advice only: a
  // system without them goes on with small ones.
  madvise(pages, bytes, MADV_HUGEPAGE);
  cells_ = static_cast<float*>(pages);
  size_ = count;
}

CellArray::~CellArray() {
  if (cells_ != nullptr) munmap(cells_, size_ * sizeof(float));
}

CellArray::CellArray(CellArray&& other) noexcept
    : cells_(std::exchange(other.cells_, nullptr)), size_(std::exchange(other.size_, 0)) {}

CellArray& CellArray::operator=(CellArray&& other) noexcept {
  CellArray taken(std::move(other));
  std::swap(cells_, taken.cells_);
  std::swap(size_, taken.size_);
  return *this;
}

}  // namespace sylvomex
