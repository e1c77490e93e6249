// SPDX-License-Identifier: MIT
#include "platform/zeroed_array.h"

#include <sys/mman.h>

#include <cstdint>

#include "platform/huge_pages.h"

namespace sylvomex {
namespace {

void* Map(std::size_t bytes) {
  void* const pages =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) throw std::bad_alloc();
  return pages;
}

/// Maps pages that start at a huge-page boundary; the surplus before and after is unmapped.
void* Map_At_Boundary(std::size_t bytes) {
  if (bytes > SIZE_MAX - kHugePage) throw std::bad_alloc();
  auto* const start = static_cast<std::byte*>(Map(bytes + kHugePage));
  const std::size_t before = (0 - reinterpret_cast<std::uintptr_t>(start)) % kHugePage;
  if (before > 0) munmap(start, before);
  munmap(start + before + bytes, kHugePage - before);
  return start + before;
}

}  // namespace

void* Map_Zeroed_Pages(std::size_t bytes) {
  constexpr std::size_t kPage = 4096;
  if (bytes > SIZE_MAX - kPage) throw std::bad_alloc();
  const std::size_t whole = (bytes + kPage - 1) / kPage * kPage;
  if (whole < kHugePage) return Map(whole);
  void* const pages = Map_At_Boundary(whole);
  Prefer_Huge_Pages(pages, whole);
  return pages;
}

void Unmap_Pages(void* pages, std::size_t bytes) { munmap(pages, bytes); }

}  // namespace sylvomex
