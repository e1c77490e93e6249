// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/file_watch.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {

PositionalFile::PositionalFile(const FilePath& file) : file_(file) {
  FileDescriptor open_file(file, O_RDONLY);
  size_ = Visible_Bytes(file, static_cast<std::uint64_t>(open_file.Status().st_size));
  descriptor_ = open_file.Release();
}

PositionalFile::~PositionalFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

PositionalFile::PositionalFile(PositionalFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      size_(other.size_),
      file_(std::move(other.file_)) {}

std::size_t PositionalFile::Read_At(std::int64_t offset, std::span<std::uint8_t> buffer) const {
  if (offset < 0) Throw_File_Failure(file_, "position " + std::to_string(offset));
  if (size_ > 0) {  // else the system does not tell the size
    const auto start = static_cast<std::uint64_t>(offset);
    buffer = buffer.first(std::min<std::uint64_t>(buffer.size(), size_ - std::min(start, size_)));
  }
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t count = pread(descriptor_, buffer.data() + done, buffer.size() - done,
                                offset + static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Throw_File_Error(file_, errno);
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

}  // namespace sylvomex
