// SPDX-License-Identifier: MIT
#include "platform/file_lock.h"

#include <fcntl.h>

#include <cerrno>
#include <string>
#include <thread>

namespace sylvomex {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenTries{5};

// The lock belongs to the open file, not to the process: closing another descriptor of the same
// file does not end it.
int Try_Lock(int descriptor) {
  struct flock whole = {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  return fcntl(descriptor, F_OFD_SETLK, &whole) == 0 ? 0 : errno;
}

bool Is_Held_By_Another(int error) { return error == EAGAIN || error == EACCES || error == EINTR; }

bool Is_Still_In_Place(const FileDescriptor& open_file, const FilePath& file) {
  struct stat now = {};
  return stat(file.native.c_str(), &now) == 0 && now.st_dev == open_file.Status().st_dev &&
         now.st_ino == open_file.Status().st_ino;
}

std::string Seconds_Text(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(time).count();
  return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

}  // namespace

void Lock_File(const FileDescriptor& open_file, const FilePath& file,
               std::chrono::milliseconds longest) {
  const Clock::time_point last = Clock::now() + longest;
  while (Is_Held_By_Another(Try_Lock(open_file.Number()))) {
    if (Clock::now() >= last) {
      Throw_File_Failure(file, "another program has kept it locked for " + Seconds_Text(longest));
    }
    std::this_thread::sleep_for(kBetweenTries);
  }
}

std::unique_ptr<FileDescriptor> Open_Locked(const FilePath& file, int flags,
                                            std::chrono::milliseconds longest) {
  const Clock::time_point last = Clock::now() + longest;
  for (;;) {
    auto open_file = std::make_unique<FileDescriptor>(file, flags);
    Lock_File(*open_file, file, longest);
    if (Is_Still_In_Place(*open_file, file)) return open_file;
    if (Clock::now() >= last) Throw_File_Failure(file, "another program keeps replacing it");
  }
}

}  // namespace sylvomex
