// SPDX-License-Identifier: MIT
// Calls of the operating system that fail, are interrupted or transfer a part. To be included by
// one source of a test program: it defines these calls for the whole of it.
#pragma once

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <functional>
#include <thread>

namespace sylvomex {

enum class SystemCall { Read, ReadAt, Write, Flush, Allocate, Cut };

class FailingCall {
 public:
  static constexpr int kInPart = -1;  // half of the bytes are transferred

  /// For the scope, one call fails: the next one of that kind, or the one after `before` others.
  /// Those of other threads are let through, but for flushes. error: of the system, or kInPart.
  /// then: done right after it.
  FailingCall(SystemCall call, int error, int before = 0, std::function<void()> then = {}) {
    then_ = std::move(then);
    error_ = error;
    call_ = call;
    thread_ = std::this_thread::get_id();
    left_ = before + 1;
  }
  ~FailingCall() { left_ = 0; }
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  [[nodiscard]] static bool Has_Happened() { return left_ <= 0; }

  /// 0 for a call that does not fail.
  static int Error_Of(SystemCall call) {
    if (left_ <= 0 || call != call_) return 0;
    if (call != SystemCall::Flush && std::this_thread::get_id() != thread_) return 0;
    return --left_ == 0 ? error_.load() : 0;
  }

  /// The result of a transfer of `bytes` bytes.
  template <class Transfer>
  static ssize_t Transferred(SystemCall call, std::size_t bytes, Transfer transfer) {
    const int error = Error_Of(call);
    if (error > 0) {
      errno = error;
      return -1;
    }
    const ssize_t count = transfer(error == kInPart ? bytes / 2 : bytes);
    if (error == kInPart && then_) then_();
    return count;
  }

 private:
  static inline std::atomic<SystemCall> call_ = SystemCall::Read;
  static inline std::atomic<int> error_ = 0;
  static inline std::atomic<int> left_ = 0;
  static inline std::thread::id thread_;
  static inline std::function<void()> then_;
};

}  // namespace sylvomex

extern "C" {

ssize_t read(int descriptor, void* data, std::size_t bytes) {
  using namespace sylvomex;
  return FailingCall::Transferred(SystemCall::Read, bytes, [&](std::size_t count) {
    return static_cast<ssize_t>(syscall(SYS_read, descriptor, data, count));
  });
}

ssize_t pread(int descriptor, void* data, std::size_t bytes, off_t offset) {
  using namespace sylvomex;
  return FailingCall::Transferred(SystemCall::ReadAt, bytes, [&](std::size_t count) {
    return static_cast<ssize_t>(syscall(SYS_pread64, descriptor, data, count, offset));
  });
}

ssize_t write(int descriptor, const void* data, std::size_t bytes) {
  using namespace sylvomex;
  return FailingCall::Transferred(SystemCall::Write, bytes, [&](std::size_t count) {
    return static_cast<ssize_t>(syscall(SYS_write, descriptor, data, count));
  });
}

int fdatasync(int descriptor) {
  using namespace sylvomex;
  errno = FailingCall::Error_Of(SystemCall::Flush);
  return errno != 0 ? -1 : static_cast<int>(syscall(SYS_fdatasync, descriptor));
}

int posix_fallocate(int descriptor, off_t offset, off_t bytes) {
  using namespace sylvomex;
  if (const int error = FailingCall::Error_Of(SystemCall::Allocate)) return error;
  // That of the C library, which does without where a file system has no such call.
  static const auto library =
      reinterpret_cast<int (*)(int, off_t, off_t)>(dlsym(RTLD_NEXT, "posix_fallocate"));
  return library(descriptor, offset, bytes);
}

int ftruncate(int descriptor, off_t bytes) {
  using namespace sylvomex;
  errno = FailingCall::Error_Of(SystemCall::Cut);
  return errno != 0 ? -1 : static_cast<int>(syscall(SYS_ftruncate, descriptor, bytes));
}

}  // extern "C"
