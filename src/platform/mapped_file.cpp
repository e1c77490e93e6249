// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/mapping.h"
#include "platform/sound_reads.h"

namespace sylvomex {

namespace {

bool Is_Same_File(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool Is_Same_Time(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

}  // namespace

Mapping::Mapping(const FilePath& file) : file_(file) {
  const FileDescriptor open_file(file_, O_RDONLY);
  status_ = open_file.Status();
  size_ = static_cast<std::size_t>(status_.st_size);
  if (size_ == 0) return;
  void* const start = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, open_file.Number(), 0);
  if (start == MAP_FAILED) Throw_File_Error(file_, errno);
  data_ = static_cast<const std::uint8_t*>(start);
  guard_.emplace(start, size_);
}

Mapping::~Mapping() {
  guard_.reset();
  if (data_ != nullptr) munmap(const_cast<std::uint8_t*>(data_), size_);
}

bool Mapping::Is_Current() const {
  struct stat now = {};
  return stat(file_.native.c_str(), &now) == 0 && Is_Same_File(now, status_) &&
         now.st_size == status_.st_size && Is_Same_Time(now.st_mtim, status_.st_mtim) &&
         !(guard_ && guard_->Faulted());
}

// What lies behind the new end in its page reads as zeros without a fault.
bool Mapping::Is_Shortened() const {
  struct stat now = {};
  return stat(file_.native.c_str(), &now) == 0 && Is_Same_File(now, status_) &&
         now.st_size < status_.st_size;
}

std::optional<RunTimeError> Mapping::Failed() const {
  if (!guard_ || !(guard_->Faulted() || Is_Shortened())) return std::nullopt;
  return RunTimeError(Failure::FileFailure,
                      file_.name + ", it became shorter or unreadable while it was read",
                      file_.native);
}

MappedFile::MappedFile(const FilePath& file) : mapping_(std::make_shared<const Mapping>(file)) {}

std::span<const std::uint8_t> MappedFile::Bytes() const {
  Note_Read(mapping_);
  return mapping_->Bytes();
}

const FilePath& MappedFile::File() const { return mapping_->File(); }

bool MappedFile::Is_Current() const { return mapping_->Is_Current(); }

void MappedFile::Require_Sound() const {
  if (const auto failure = mapping_->Failed()) throw *failure;
}

}  // namespace sylvomex
