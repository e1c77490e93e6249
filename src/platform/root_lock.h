// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// Marks the root of the drives as used by this program, as long as the object lives or until the
/// process ends, however it ends. The folder itself is locked: nothing is written into it.
class RootLock {
 public:
  /// A root that is missing, or whose disk knows no locks, counts as free.
  explicit RootLock(const std::filesystem::path& root);
  ~RootLock();
  RootLock(const RootLock&) = delete;
  RootLock& operator=(const RootLock&) = delete;

  /// True when another program, or another session of this one, held the lock first.
  [[nodiscard]] bool Is_In_Use() const { return is_in_use_; }

  /// Who holds it: "process 1234", or "another program" where that cannot be known.
  [[nodiscard]] const std::string& Holder() const { return holder_; }

 private:
  int folder_ = -1;
  bool is_in_use_ = false;
  std::string holder_;
};

}  // namespace sylvomex
