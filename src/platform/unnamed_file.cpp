// SPDX-License-Identifier: MIT
#include "platform/unnamed_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

#include "platform/disk_room.h"
#include "platform/file_descriptor.h"
#include "platform/guest_files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kCopied = std::uint64_t{1} << 22;  // bytes at a time

int Open_Unnamed(const FilePath& folder) {
  Require_Writable(folder);
  const int number = open(folder.native.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
  if (number >= 0 || (errno != EOPNOTSUPP && errno != EISDIR)) return number;
  // A disk without unnamed files: one whose name goes at once.
  std::string name = (folder.native / "unnamed.XXXXXX").string();
  const int named = mkostemp(name.data(), O_CLOEXEC);
  if (named >= 0) unlink(name.c_str());
  return named;
}

}  // namespace

UnnamedFile::UnnamedFile(const FilePath& folder, std::uint64_t size)
    : folder_(folder), size_(size), descriptor_(Open_Unnamed(folder)) {
  if (descriptor_ < 0) Throw_File_Error(folder_, errno);
  const int failed = Reserve_Disk_Room(descriptor_, size);
  if (failed == 0) return;
  close(descriptor_);
  Throw_File_Error(folder_, failed);
}

UnnamedFile::~UnnamedFile() { close(descriptor_); }

void UnnamedFile::Write_At(std::uint64_t offset, std::span<const std::uint8_t> content) const {
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t count = pwrite(descriptor_, content.data() + done, content.size() - done,
                                 static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) Throw_File_Error(folder_, count == 0 ? ENOSPC : errno);
    done += static_cast<std::size_t>(count);
  }
}

void UnnamedFile::Replace(const FilePath& file) const {
  ReplacingFile replacing(file, 0);
  if (!replacing.Take_Over(descriptor_)) {
    std::vector<std::uint8_t> piece(std::min(size_, kCopied));
    for (std::uint64_t at = 0; at < size_;) {
      const ssize_t count = pread(descriptor_, piece.data(), piece.size(), static_cast<off_t>(at));
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) Throw_File_Error(folder_, count == 0 ? EIO : errno);
      replacing.Write_At(at, std::span(piece).first(static_cast<std::size_t>(count)));
      at += static_cast<std::uint64_t>(count);
    }
  }
  replacing.Commit();
}

}  // namespace sylvomex
