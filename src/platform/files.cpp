// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <stdexcept>

#include "platform/file_descriptor.h"
#include "platform/file_watch.h"
#include "platform/guest_files.h"
#include "platform/run_time_error.h"
#include "platform/sound_reads.h"
#include "platform/write_witness.h"

namespace sylvomex {

namespace {

/// Writes as many bytes as possible and returns their number; errno is set when some are missing.
std::size_t Write_At_Start(int descriptor, std::span<const std::uint8_t> content) {
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t count = write(descriptor, content.data() + done, content.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

std::string Read_To_The_End(const FileDescriptor& open_file, const FilePath& file) {
  constexpr std::size_t kStep = 65536;
  std::string content;
  std::size_t length = 0;
  const auto expected = static_cast<std::size_t>(open_file.Status().st_size);
  // One byte more than expected, so that the end of the file is found by the same read. Files of
  // the system have no size.
  content.resize(expected > 0 ? expected + 1 : kStep);
  for (;;) {
    const ssize_t count =
        read(open_file.Number(), content.data() + length, content.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Throw_File_Error(file, errno);
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length == content.size()) content.resize(length + length / 2 + kStep);
  }
  content.resize(length);
  return content;
}

}  // namespace

std::string Read_Whole_File(const FilePath& file) {
  const FileDescriptor open_file(file, O_RDONLY);
  try {
    std::string content = Read_To_The_End(open_file, file);
    content.resize(Visible_Bytes(file, content.size()));
    return content;
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, file.name, file.native);
  } catch (const std::length_error&) {
    throw RunTimeError(Failure::OutOfMemory, file.name, file.native);
  }
}

void Write_Whole_File(const FilePath& file, std::string_view content) {
  Write_Whole_File(file, {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
}

void Write_Whole_File(const FilePath& file, std::span<const std::uint8_t> content) {
  Require_Sound_Reads();
  // Existing blocks are overwritten in place and only the excess is truncated: the scratch bitmaps
  // are written many times a second.
  FileDescriptor open_file(file, O_WRONLY | O_CREAT);
  if (Write_At_Start(open_file.Number(), content) != content.size()) {
    Throw_File_Error(file, errno);
  }
  const bool has_tail = static_cast<std::uint64_t>(open_file.Status().st_size) > content.size();
  if (has_tail && ftruncate(open_file.Number(), static_cast<off_t>(content.size())) != 0) {
    Throw_File_Error(file, errno);
  }
  open_file.Close();
}

void Overwrite_Start(const FilePath& file, std::span<const std::uint8_t> content) {
  Require_Sound_Reads();
  FileDescriptor open_file(file, O_WRONLY);
  if (Write_At_Start(open_file.Number(), content) != content.size()) {
    Throw_File_Error(file, errno);
  }
  open_file.Close();
}

void Delete_File(const FilePath& file) {
  Require_Writable(file);
  Tell_Change(file, false);
  if (!file.native.empty() && unlink(file.native.c_str()) == 0) return;
  const bool is_missing = !file.native.empty() && (errno == ENOENT || errno == ENOTDIR);
  if (!is_missing) Throw_File_Error(file, errno);
}

void Delete_Matching(const DriveMap& drives, std::string_view pattern) {
  for (const FilePath& file : drives.Match(pattern)) Delete_File(file);
}

bool File_Exists(const FilePath& file) {
  std::error_code failure;
  const auto status = std::filesystem::status(Place_To_Read(file), failure);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

}  // namespace sylvomex
