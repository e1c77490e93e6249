// SPDX-License-Identifier: MIT
#include "platform/root_lock.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// Another process that takes the lock and then waits to be killed.
class Holder {
 public:
  explicit Holder(const std::filesystem::path& root) {
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ == 0) {
      const RootLock lock(root);
      [[maybe_unused]] const auto told = write(ready[1], lock.Is_In_Use() ? "u" : "f", 1);
      for (;;) pause();
    }
    [[maybe_unused]] const auto heard = read(ready[0], &state_, 1);
    close(ready[0]);
    close(ready[1]);
  }
  ~Holder() { Kill(); }
  void Kill() {
    if (process_ > 0) {
      kill(process_, SIGKILL);
      waitpid(process_, nullptr, 0);
    }
    process_ = -1;
  }
  [[nodiscard]] bool Has_It() const { return state_ == 'f'; }
  [[nodiscard]] pid_t Process() const { return process_; }

 private:
  pid_t process_ = -1;
  char state_ = 0;
};

TEST(RootLock, FirstOneHasTheRootAndTheSecondIsToldWhoHoldsIt) {
  const TemporaryFolder root;
  const Holder first(root.Path());
  ASSERT_TRUE(first.Has_It());
  const RootLock second(root.Path());
  EXPECT_TRUE(second.Is_In_Use());
  EXPECT_EQ(second.Holder(), "process " + std::to_string(first.Process()));
}

TEST(RootLock, KilledProgramLeavesNothingThatBlocks) {
  const TemporaryFolder root;
  Holder first(root.Path());
  first.Kill();
  EXPECT_FALSE(RootLock(root.Path()).Is_In_Use());
  EXPECT_TRUE(std::filesystem::is_empty(root.Path()));
}

TEST(RootLock, IsFreeAgainAtTheEndOfItsScope) {
  const TemporaryFolder root;
  std::optional<RootLock> first(std::in_place, root.Path());
  EXPECT_TRUE(RootLock(root.Path()).Is_In_Use());
  first.reset();
  EXPECT_FALSE(RootLock(root.Path()).Is_In_Use());
}

TEST(RootLock, SeesTheSameRootUnderAnotherName) {
  const TemporaryFolder folder;
  std::filesystem::create_directory_symlink(folder.Make_Folder("root"), folder.Path() / "link");
  const RootLock first(folder.Path() / "root");
  EXPECT_TRUE(RootLock(folder.Path() / "link").Is_In_Use());
}

TEST(RootLock, MissingRootCountsAsFree) { EXPECT_FALSE(RootLock("/no/such/root").Is_In_Use()); }

}  // namespace
}  // namespace sylvomex
