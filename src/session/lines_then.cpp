// SPDX-License-Identifier: MIT
#include "session/lines_then.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "platform/run_time_error.h"
#include "session/file_part.h"

namespace sylvomex {

LinesThen::LinesThen(std::filesystem::path file, std::uint64_t begin, bool was_missing)
    : file_(std::move(file)),
      descriptor_(memfd_create("sylvomex_lines_then", MFD_CLOEXEC)),
      is_missing_(was_missing),
      is_whole_(descriptor_ >= 0) {
  Fill_To(begin);
}

LinesThen::~LinesThen() {
  if (descriptor_ >= 0) close(descriptor_);
}

void LinesThen::Write(std::string_view lines) {
  const ssize_t count = pwrite(descriptor_, lines.data(), lines.size(), static_cast<off_t>(size_));
  if (count != static_cast<ssize_t>(lines.size())) is_whole_ = false;
  size_ += lines.size();
}

void LinesThen::Fill_To(std::uint64_t end) {
  if (end <= size_) return;
  try {
    Write(Part_Of_File(file_, size_, end - size_));
  } catch (const RunTimeError&) {
    is_whole_ = false;
  }
}

void LinesThen::Append(std::uint64_t offset, std::string_view lines) {
  Fill_To(offset);
  Write(lines);
  is_missing_ = false;
}

void LinesThen::Take(std::uint64_t bytes) {
  size_ -= std::min(bytes, size_);
  if (ftruncate(descriptor_, static_cast<off_t>(size_)) != 0) is_whole_ = false;
}

std::optional<std::filesystem::path> LinesThen::Place() const {
  if (!is_whole_) return std::nullopt;
  if (is_missing_) return std::filesystem::path();
  return "/proc/self/fd/" + std::to_string(descriptor_);
}

}  // namespace sylvomex
