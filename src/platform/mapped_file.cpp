// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/mapping.h"
#include "platform/sound_reads.h"

namespace sylvomex {

namespace {

// A command asks after every line that it writes, and an open file answers without its path being
// followed. A mosaic of hundreds of images must not use up the descriptors of the process.
constexpr int kHighestKept = 255;

bool Is_Same_File(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool Is_Same_Time(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

}  // namespace

Mapping::Mapping(const FilePath& file) : file_(file) {
  FileDescriptor open_file(file_, O_RDONLY);
  status_ = open_file.Status();
  size_ = static_cast<std::size_t>(status_.st_size);
  if (size_ == 0) return;
  void* const start = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, open_file.Number(), 0);
  if (start == MAP_FAILED) Throw_File_Error(file_, errno);
  data_ = static_cast<const std::uint8_t*>(start);
  guard_.emplace(start, size_);
  if (open_file.Number() <= kHighestKept) descriptor_ = open_file.Release();
}

Mapping::~Mapping() {
  guard_.reset();
  if (data_ != nullptr) munmap(const_cast<std::uint8_t*>(data_), size_);
  if (descriptor_ >= 0) close(descriptor_);
}

bool Mapping::Is_Current() const {
  struct stat now = {};
  return stat(file_.native.c_str(), &now) == 0 && Is_Same_File(now, status_) &&
         now.st_size == status_.st_size && Is_Same_Time(now.st_mtim, status_.st_mtim) &&
         !(guard_ && guard_->Faulted());
}

std::optional<struct stat> Mapping::Status_Now() const {
  struct stat now = {};
  if (descriptor_ >= 0) return fstat(descriptor_, &now) == 0 ? std::optional(now) : std::nullopt;
  const bool is_there = stat(file_.native.c_str(), &now) == 0 && Is_Same_File(now, status_);
  return is_there ? std::optional(now) : std::nullopt;
}

// What lies behind the new end in its page reads as zeros without a fault.
std::optional<RunTimeError> Mapping::Failed() const {
  if (!guard_) return std::nullopt;
  const std::optional<struct stat> now = Status_Now();
  const bool is_shorter = now && now->st_size < status_.st_size;
  const bool is_rewritten =
      now && now->st_size == status_.st_size && !Is_Same_Time(now->st_mtim, status_.st_mtim);
  if (!is_shorter && !is_rewritten && !guard_->Faulted()) return std::nullopt;
  const bool is_lost = is_shorter || guard_->Faulted();
  return RunTimeError(Failure::FileFailure,
                      file_.name + (is_lost ? ", it became shorter or unreadable while it was read"
                                            : ", it was rewritten while it was read"),
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
