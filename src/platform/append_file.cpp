// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "platform/append_witness.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/flush_to_disk.h"
#include "platform/operator_notices.h"
#include "platform/run_time_error.h"
#include "platform/sound_reads.h"
#include "platform/write_witness.h"

namespace sylvomex {

namespace {

AppendWitness*& Witness() {
  static AppendWitness* witness = nullptr;
  return witness;
}

/// The end of a locked file.
struct Tail {
  std::uint64_t size = 0;  // bytes
  bool is_torn = false;    // the last line has no line end
};

bool Is_Missing(const FilePath& file) {
  std::error_code failure;
  return !std::filesystem::exists(file.native, failure) && !failure;
}

/// A file that may be written but not read counts as whole.
std::unique_ptr<FileDescriptor> Open_For_Append(const FilePath& file) {
  try {
    return Open_Locked(file, O_RDWR | O_CREAT | O_APPEND);
  } catch (const RunTimeError& failure) {
    if (failure.Kind() != Failure::PermissionDenied) throw;
  }
  return Open_Locked(file, O_WRONLY | O_CREAT | O_APPEND);
}

std::uint64_t Size_Of(const FileDescriptor& open_file, const FilePath& file) {
  struct stat status = {};
  if (fstat(open_file.Number(), &status) != 0) Throw_File_Error(file, errno);
  return static_cast<std::uint64_t>(status.st_size);
}

Tail Tail_Of(const FileDescriptor& open_file, const FilePath& file) {
  Tail tail{Size_Of(open_file, file), false};
  if (tail.size == 0) return tail;
  char last = '\n';
  ssize_t count = 0;
  do {
    count = pread(open_file.Number(), &last, 1, static_cast<off_t>(tail.size - 1));
  } while (count < 0 && errno == EINTR);
  const bool may_not_be_read = count < 0 && errno == EBADF;
  if (count < 0 && !may_not_be_read) Throw_File_Error(file, errno);
  tail.is_torn = last != '\n';
  return tail;
}

struct Written {
  std::uint64_t bytes = 0;
  int error = 0;  // of the operating system; 0 when all is on the disk
};

bool Ends_At(const FileDescriptor& open_file, const FilePath& file, std::uint64_t size) {
  return Size_Of(open_file, file) == size;
}

/// What the disk does not take with the first write follows, unless something else has been written
/// behind it.
Written Write_And_Flush(const FileDescriptor& open_file, const FilePath& file, const Tail& tail,
                        std::string_view lines) {
  std::uint64_t done = 0;
  while (done < lines.size()) {
    if (done > 0 && !Ends_At(open_file, file, tail.size + done)) return {done, EIO};
    const ssize_t count = write(open_file.Number(), lines.data() + done, lines.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return {done, count == 0 ? ENOSPC : errno};
    done += static_cast<std::uint64_t>(count);
  }
  return {done, Flush_To_Disk(open_file.Number())};
}

/// Cuts off what was written in part, and nothing that another program has written since.
void Take_Back(const FileDescriptor& open_file, const FilePath& file, const Tail& tail,
               std::uint64_t written) {
  if (written == 0) return;
  const bool is_last = Ends_At(open_file, file, tail.size + written);
  if (!is_last || ftruncate(open_file.Number(), static_cast<off_t>(tail.size)) != 0) {
    Throw_File_Failure(file, "a line was written in part");
  }
}

/// True once for each file in a program run.
bool Is_First_Mending(const FilePath& file) {
  static std::mutex mutex;
  static std::set<std::string> mended;
  const std::lock_guard lock(mutex);
  return mended.insert(file.native.string()).second;
}

void Tell_Of_Torn_Line(const FilePath& file) {
  if (!Is_First_Mending(file)) return;
  Leave_Notice("The last line of " + file.name +
               " had no line end and may be incomplete. The new line stands on a line of its own.");
}

void Append_Lines(const FileDescriptor& open_file, const FilePath& file, const Tail& tail,
                  std::string_view text) {
  const std::string lines = (tail.is_torn ? "\n" : "") + std::string(text);
  const Written written = Write_And_Flush(open_file, file, tail, lines);
  if (written.error == 0) return;
  Take_Back(open_file, file, tail, written.bytes);
  Throw_File_Error(file, written.error);
}

}  // namespace

AppendWitness* Set_Append_Witness(AppendWitness* witness) {
  return std::exchange(Witness(), witness);
}

AppendWitness* Present_Append_Witness() { return Witness(); }

void Append_To_File(const FilePath& file, std::string_view text) {
  Require_Sound_Reads();
  AppendWitness* const witness = Present_Append_Witness();
  if (witness != nullptr) witness->Will_Open(file, Is_Missing(file));
  if (text.empty()) {
    FileDescriptor(file, O_WRONLY | O_CREAT | O_APPEND).Close();
    return;
  }
  const auto open_file = Open_For_Append(file);
  if (witness != nullptr && witness->Already_Written(file, text)) return Tell_Append(file, text);
  const Tail tail = Tail_Of(*open_file, file);
  const std::uint64_t offset = tail.size + (tail.is_torn ? 1 : 0);
  if (witness != nullptr) witness->Will_Append(file, offset, text);
  try {
    Append_Lines(*open_file, file, tail, text);
  } catch (const RunTimeError&) {
    if (witness != nullptr) witness->Not_Appended(file, offset, text);
    throw;
  }
  if (witness != nullptr) witness->Has_Appended(file, offset, text);
  Tell_Append(file, text);
  if (tail.is_torn) Tell_Of_Torn_Line(file);
}

}  // namespace sylvomex
