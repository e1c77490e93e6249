// SPDX-License-Identifier: MIT
#include "platform/sound_reads.h"

#include <algorithm>

#include "platform/mapping.h"

namespace sylvomex {
namespace {

thread_local ReadScope* innermost = nullptr;

}  // namespace

ReadScope::ReadScope() : outer_(innermost) { innermost = this; }

ReadScope::~ReadScope() { innermost = outer_; }

std::optional<RunTimeError> ReadScope::Failed() const {
  for (const auto& mapping : read_) {
    if (auto failure = mapping->Failed()) return failure;
  }
  return std::nullopt;
}

void ReadScope::Note(const std::shared_ptr<const Mapping>& mapping) {
  if (std::ranges::find(read_, mapping) == read_.end()) read_.push_back(mapping);
}

void Note_Read(const std::shared_ptr<const Mapping>& mapping) {
  if (innermost != nullptr) innermost->Note(mapping);
}

void Require_Sound_Reads() {
  if (innermost == nullptr) return;
  if (const auto failure = innermost->Failed()) throw *failure;
}

}  // namespace sylvomex
