// SPDX-License-Identifier: MIT
#include "platform/replacing_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/disk_room.h"
#include "platform/file_descriptor.h"
#include "platform/sound_reads.h"
#include "platform/write_witness.h"

namespace sylvomex {
namespace {

/// The file to replace: a symbolic link is followed, so that the link itself stays.
std::filesystem::path Replaced_Path(const FilePath& file) {
  std::error_code error;
  std::filesystem::path target = std::filesystem::canonical(file.native, error);
  return error ? file.native : target;
}

FilePath Partial_Name(const FilePath& file) {
  FilePath partial = file;
  if (!file.native.empty()) partial.native += ".part" + std::to_string(getpid());
  return partial;
}

}  // namespace

ReplacingFile::ReplacingFile(const FilePath& file, std::uint64_t size)
    : file_{file.name, Replaced_Path(file)}, partial_(Partial_Name(file_)) {
  std::error_code error;
  const auto status = std::filesystem::status(file_.native, error);
  if (std::filesystem::is_directory(status)) Throw_File_Error(file_, EISDIR);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    Throw_File_Error(file_, ENXIO);
  }
  open_file_ = std::make_unique<FileDescriptor>(partial_, O_WRONLY | O_CREAT | O_TRUNC);
  const int failed = Reserve_Disk_Room(open_file_->Number(), size);
  if (failed == 0) return;
  unlink(partial_.native.c_str());
  Throw_File_Error(file_, failed);
}

ReplacingFile::~ReplacingFile() {
  if (open_file_ != nullptr) unlink(partial_.native.c_str());
}

void ReplacingFile::Write_At(std::uint64_t offset, std::span<const std::uint8_t> content) const {
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t count = pwrite(open_file_->Number(), content.data() + done, content.size() - done,
                                 static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) Throw_File_Error(file_, count == 0 ? ENOSPC : errno);
    done += static_cast<std::size_t>(count);
  }
}

bool ReplacingFile::Take_Over(int unnamed) const {
  const std::string open_path = "/proc/self/fd/" + std::to_string(unnamed);
  const std::string link = partial_.native.string() + ".link";
  if (linkat(AT_FDCWD, open_path.c_str(), AT_FDCWD, link.c_str(), AT_SYMLINK_FOLLOW) != 0) {
    return false;
  }
  if (std::rename(link.c_str(), partial_.native.c_str()) == 0) return true;
  unlink(link.c_str());
  return false;
}

void ReplacingFile::Commit() {
  Require_Sound_Reads();
  Tell_Change(file_, false);
  open_file_->Close();
  if (std::rename(partial_.native.c_str(), file_.native.c_str()) != 0) {
    Throw_File_Error(file_, errno);
  }
  open_file_.reset();
}

void Replace_Whole_File(const FilePath& file, std::span<const std::uint8_t> content) {
  ReplacingFile replacing(file, content.size());
  replacing.Write_At(0, content);
  replacing.Commit();
}

}  // namespace sylvomex
