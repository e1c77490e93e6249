// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {

namespace {

std::int64_t Modified_Ns(const struct stat& status) {
  return std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
}

void Require_Regular(const FileDescriptor& open_file, const FilePath& file) {
  if (!open_file.Is_Regular()) Throw_File_Failure(file, "it is not an ordinary file");
}

}  // namespace

PositionalFile::PositionalFile(const FilePath& file) : file_(file) {
  FileDescriptor open_file(file, O_RDONLY | O_NONBLOCK);
  Require_Regular(open_file, file);
  size_ = static_cast<std::uint64_t>(open_file.Status().st_size);
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

MappedFile::MappedFile(const FilePath& file) : file_(file) {
  const FileDescriptor open_file(file, O_RDONLY | O_NONBLOCK);
  Require_Regular(open_file, file);
  const struct stat& status = open_file.Status();
  size_ = static_cast<std::size_t>(status.st_size);
  device_ = status.st_dev;
  inode_ = status.st_ino;
  modified_ns_ = Modified_Ns(status);
  if (size_ == 0) return;
  void* const start = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, open_file.Number(), 0);
  if (start == MAP_FAILED) Throw_File_Error(file, errno);
  data_ = static_cast<const std::uint8_t*>(start);
}

MappedFile::~MappedFile() {
  if (data_ != nullptr) munmap(const_cast<std::uint8_t*>(data_), size_);
}

bool MappedFile::Is_Current() const {
  struct stat status = {};
  return stat(file_.native.c_str(), &status) == 0 && status.st_dev == device_ &&
         status.st_ino == inode_ && static_cast<std::size_t>(status.st_size) == size_ &&
         Modified_Ns(status) == modified_ns_;
}

}  // namespace sylvomex
