// SPDX-License-Identifier: MIT
#include "interchange/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

int Open_New(const std::filesystem::path& path) {
  int descriptor = -1;
  do {
    descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& path, std::string name)
    : name_(std::move(name)), descriptor_(Open_New(path)) {
  if (descriptor_ < 0) Fail(errno);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

void OutputFile::Fail(int error) const {
  throw FailedOnTheWay(name_ + ": it cannot be written: " + std::generic_category().message(error));
}

void OutputFile::Write_At(std::uint64_t offset, std::span<const std::uint8_t> bytes) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
                                 static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) Fail(count == 0 ? ENOSPC : errno);
    done += static_cast<std::size_t>(count);
  }
}

void OutputFile::Write(std::span<const std::uint8_t> bytes) {
  Write_At(written_, bytes);
  written_ += bytes.size();
}

void OutputFile::Write(std::string_view text) {
  Write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void OutputFile::Close() {
  if (close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) Fail(errno);
}

void OutputFile::Close_Synced() {
  while (fsync(descriptor_) != 0) {
    if (errno != EINTR) Fail(errno);
  }
  Close();
}

}  // namespace sylvomex
