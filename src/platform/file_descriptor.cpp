// SPDX-License-Identifier: MIT
#include "platform/file_descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/file_watch.h"
#include "platform/guest_files.h"
#include "platform/run_time_error.h"
#include "platform/write_witness.h"

namespace sylvomex {

namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr const char* kNoOrdinaryFile = "it is not an ordinary file";

Failure Kind_Of(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      return Failure::FileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return Failure::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Failure::DiskFull;
    case ETXTBSY:
      return Failure::FileAlreadyOpen;
    case ENOMEM:
      return Failure::OutOfMemory;
    default:
      return Failure::FileFailure;
  }
}

int Open_Path(const std::string& path, int flags) {
  int number = -1;
  do {
    number = open(path.c_str(), flags | O_CLOEXEC, kNewFileMode);
  } while (number < 0 && errno == EINTR);
  return number;
}

bool Is_Reading(int flags) { return (flags & O_ACCMODE) == O_RDONLY; }

void Tell_Watch(const FilePath& file, int flags, int number, const struct stat& status) {
  FileWatch* const watch = Present_File_Watch();
  const bool is_read = Is_Reading(flags) && S_ISREG(status.st_mode);
  if (watch != nullptr && is_read) watch->Reads(file, number, status);
}

int Open(const std::string& path, int flags) {
  if (path.find('\0') != std::string::npos) {
    errno = ENOENT;
    return -1;
  }
  // A pipe would wait for its other end, a device for its line.
  const int number = Open_Path(path, flags | O_NONBLOCK);
  // Another program may hold a lease on the file, which it gives back to one who waits.
  if (number >= 0 || errno != EAGAIN) return number;
  std::error_code failure;
  const bool is_leased = std::filesystem::is_regular_file(path, failure);
  errno = EAGAIN;
  return is_leased ? Open_Path(path, flags) : number;
}

/// An error number, or 0 for an ordinary file.
int Unusable(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) return EISDIR;
  return S_ISREG(status.st_mode) ? 0 : ENXIO;
}

}  // namespace

void Throw_File_Error(const FilePath& file, int error) {
  if (file.native.empty()) throw RunTimeError(Failure::FileNotFound, "no file was chosen");
  if (error == EISDIR) Throw_File_Failure(file, "it is a folder");
  if (error == ENXIO || error == ENODEV) Throw_File_Failure(file, kNoOrdinaryFile);
  const Failure kind = Kind_Of(error);
  if (kind == Failure::FileFailure) {
    Throw_File_Failure(file, std::generic_category().message(error));
  }
  throw RunTimeError(kind, file.name, file.native);
}

void Throw_File_Failure(const FilePath& file, const std::string& cause) {
  throw RunTimeError(Failure::FileFailure, file.name + ", " + cause, file.native);
}

FileDescriptor::FileDescriptor(const FilePath& file, int flags) : file_(file) {
  if (!Is_Reading(flags)) {
    Require_Writable(file);
    Tell_Change(file, (flags & O_APPEND) != 0);
  }
  number_ = Open((Is_Reading(flags) ? Place_To_Read(file) : file.native).native(), flags);
  if (number_ < 0) {
    const int error = errno;
    // When O_CREAT fails with "not found", the missing thing is the folder.
    if ((flags & O_CREAT) != 0 && !file.native.empty() && Kind_Of(error) == Failure::FileNotFound) {
      throw RunTimeError(Failure::PathNotFound, file.name, file.native);
    }
    Throw_File_Error(file, error);
  }
  const int error = fstat(number_, &status_) != 0 ? errno : Unusable(status_);
  if (error != 0) {
    close(Release());
    Throw_File_Error(file, error);
  }
  Tell_Watch(file, flags, number_, status_);
}

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) close(number_);
}

int FileDescriptor::Release() { return std::exchange(number_, -1); }

void FileDescriptor::Close() {
  if (close(Release()) != 0 && errno != EINTR) Throw_File_Error(file_, errno);
}

}  // namespace sylvomex
