// SPDX-License-Identifier: MIT
#include "session/journal_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include "platform/flush_to_disk.h"

namespace sylvomex {
namespace {

constexpr std::chrono::milliseconds kLongestWait{500};

}  // namespace

JournalFile::JournalFile(const FilePath& file, std::uint64_t keep, std::uint64_t complete)
    : file_(file),
      open_file_(file_, O_RDWR | O_CREAT | O_APPEND),
      size_(keep),
      complete_(complete) {
  // Some network drives know no locks.
  if (flock(open_file_.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    Throw_File_Failure(file_, "another program writes it");
  }
  while (ftruncate(open_file_.Number(), static_cast<off_t>(keep)) != 0) {
    if (errno != EINTR) Throw_File_Error(file_, errno);
  }
  flusher_ = std::thread([this] { Flush_Now_And_Then(); });
}

JournalFile::~JournalFile() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_one();
  flusher_.join();
  Flush();
}

void JournalFile::Write(std::string_view lines) {
  if (!failure_.empty()) return;
  if (const int error = flush_error_) return Fail(error);
  while (!lines.empty()) {
    const ssize_t count = write(open_file_.Number(), lines.data(), lines.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return Fail(count == 0 ? ENOSPC : errno);
    size_ += static_cast<std::uint64_t>(count);
    lines.remove_prefix(static_cast<std::size_t>(count));
  }
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(waiting_, true)) return;
  }
  changed_.notify_one();
}

void JournalFile::Fail(int error) {
  failure_ = file_.name + ", " + std::generic_category().message(error);
  if (ftruncate(open_file_.Number(), static_cast<off_t>(complete_)) != 0) {
    failure_ += "; its last event is there in part";
  }
}

void JournalFile::Flush() {
  if (!failure_.empty()) return;
  const int now = Flush_To_Disk(open_file_.Number());
  const int error = flush_error_ != 0 ? flush_error_.load() : now;
  if (error != 0) Fail(error);
}

void JournalFile::Flush_Now_And_Then() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return waiting_ || ends_; });
    if (ends_) return;
    changed_.wait_for(lock, kLongestWait, [this] { return ends_; });
    waiting_ = false;
    lock.unlock();
    if (const int error = Flush_To_Disk(open_file_.Number())) flush_error_ = error;
    lock.lock();
  }
}

}  // namespace sylvomex
