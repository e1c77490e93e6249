// SPDX-License-Identifier: MIT
#include "platform/huge_pages.h"

#include <sys/mman.h>

namespace sylvomex {

void Prefer_Huge_Pages(void* memory, std::size_t bytes) {
  static_cast<void>(madvise(memory, bytes, MADV_HUGEPAGE));
}

}  // namespace sylvomex
