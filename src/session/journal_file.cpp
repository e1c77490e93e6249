// SPDX-License-Identifier: MIT
#include "session/journal_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace sylvomex {
namespace {

constexpr std::chrono::milliseconds kLongestWait{500};

}  // namespace

JournalFile::JournalFile(const FilePath& file, std::uint64_t keep)
    : file_(file), open_file_(file_, O_RDWR | O_CREAT | O_APPEND) {
  if (flock(open_file_.Number(), LOCK_EX | LOCK_NB) != 0) {
    Throw_File_Failure(file_, "another program writes it");
  }
  if (ftruncate(open_file_.Number(), static_cast<off_t>(keep)) != 0) {
    Throw_File_Error(file_, errno);
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
  ssize_t count = 0;
  do {
    count = write(open_file_.Number(), lines.data(), lines.size());
  } while (count < 0 && errno == EINTR);
  if (count != static_cast<ssize_t>(lines.size())) {
    const int error = count < 0 ? errno : ENOSPC;
    failure_ = file_.name + ", " + std::generic_category().message(error);
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(waiting_, true)) return;
  }
  changed_.notify_one();
}

void JournalFile::Flush() {
  if (fdatasync(open_file_.Number()) != 0 && errno != EINVAL && failure_.empty()) {
    failure_ = file_.name + ", " + std::generic_category().message(errno);
  }
}

void JournalFile::Flush_Now_And_Then() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return waiting_ || ends_; });
    if (ends_) return;
    changed_.wait_for(lock, kLongestWait, [this] { return ends_; });
    waiting_ = false;
    lock.unlock();
    fdatasync(open_file_.Number());
    lock.lock();
  }
}

}  // namespace sylvomex
