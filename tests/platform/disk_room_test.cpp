// SPDX-License-Identifier: MIT
#include "platform/disk_room.h"

#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <limits>
#include <thread>

#include "platform/file_descriptor.h"
#include "platform/replacing_file.h"
#include "platform/unnamed_file.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <fcntl.h>

namespace sylvomex {
namespace {

std::uint64_t Free_Bytes(const std::filesystem::path& folder) {
  struct statvfs disk = {};
  statvfs(folder.c_str(), &disk);
  return static_cast<std::uint64_t>(disk.f_bavail) * disk.f_frsize;
}

/// The least room that other programs had on the disk during an action.
template <class Action>
std::uint64_t Least_Room_During(const std::filesystem::path& folder, Action&& action) {
  std::atomic<bool> is_over = false;
  std::uint64_t least = Free_Bytes(folder);
  std::thread watch([&] {
    while (!is_over) least = std::min(least, Free_Bytes(folder));
  });
  action();
  is_over = true;
  watch.join();
  return least;
}

class DiskRoom : public testing::Test {
 protected:
  [[nodiscard]] FilePath Folder() const { return {"c:\\data", folder.Path()}; }
  TemporaryFolder folder;
};

TEST_F(DiskRoom, IsReserved) {
  const FilePath file = folder.Write("a", "");
  const FileDescriptor open_file(file, O_RDWR);
  EXPECT_EQ(Reserve_Disk_Room(open_file.Number(), 1'000'000), 0);
  struct stat status = {};
  ASSERT_EQ(fstat(open_file.Number(), &status), 0);
  EXPECT_EQ(status.st_size, 1'000'000);
  EXPECT_GE(status.st_blocks * 512, 1'000'000);
}

TEST_F(DiskRoom, NothingIsReservedForAnEmptyFileOrForASizeThatNoFileHas) {
  const FilePath file = folder.Write("a", "abc");
  const FileDescriptor open_file(file, O_RDWR);
  EXPECT_EQ(Reserve_Disk_Room(open_file.Number(), 0), 0);
  EXPECT_EQ(Reserve_Disk_Room(open_file.Number(), std::numeric_limits<std::uint64_t>::max()),
            EFBIG);
  EXPECT_EQ(folder.Read("a"), "abc");
}

TEST_F(DiskRoom, AResultThatDoesNotFitTakesNothingFromOtherProgramsForAMoment) {
  const std::uint64_t room = Free_Bytes(folder.Path());
  const std::uint64_t beyond = room + room / 4 + (1U << 20);
  std::string whole, unnamed;
  const std::uint64_t least = Least_Room_During(folder.Path(), [&] {
    whole = Failure_Of([&] { ReplacingFile(folder.File("a.raw"), beyond); });
    unnamed = Failure_Of([&] { UnnamedFile(Folder(), beyond); });
  });
  EXPECT_EQ(whole, "Disk full: a.raw");
  EXPECT_EQ(unnamed, "Disk full: c:\\data");
  EXPECT_GT(least, room / 2);
}

}  // namespace
}  // namespace sylvomex
