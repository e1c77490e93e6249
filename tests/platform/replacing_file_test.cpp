// SPDX-License-Identifier: MIT
#include "platform/replacing_file.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/run_time_error.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::size_t Entries(const std::filesystem::path& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

TEST(ReplacingFile, TheOldFileStaysUntilTheNewOneIsComplete) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.raw", "old");
  ReplacingFile replacing(file, 5);
  const std::vector<std::uint8_t> bytes{'n', 'e', 'w', 'e', 'r'};
  replacing.Write_At(0, bytes);
  EXPECT_EQ(folder.Read("a.raw"), "old");
  replacing.Commit();
  EXPECT_EQ(folder.Read("a.raw"), "newer");
  EXPECT_EQ(Entries(folder.Path()), 1u);
}

TEST(ReplacingFile, WithoutCommitTheOldFileStays) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.raw", "old");
  { const ReplacingFile replacing(file, 100); }
  EXPECT_EQ(folder.Read("a.raw"), "old");
  EXPECT_EQ(Entries(folder.Path()), 1u);
}

TEST(ReplacingFile, RangesMayBeWrittenInAnyOrder) {
  const TemporaryFolder folder;
  ReplacingFile replacing(folder.File("a.raw"), 4);
  replacing.Write_At(2, std::vector<std::uint8_t>{'c', 'd'});
  replacing.Write_At(0, std::vector<std::uint8_t>{'a', 'b'});
  replacing.Commit();
  EXPECT_EQ(folder.Read("a.raw"), "abcd");
}

TEST(ReplacingFile, ASymbolicLinkStaysAndItsTargetIsReplaced) {
  const TemporaryFolder folder;
  folder.Write("store/a.raw", "old");
  std::filesystem::create_symlink(folder.Path() / "store/a.raw", folder.Path() / "link.raw");
  Replace_Whole_File(folder.File("link.raw"), std::vector<std::uint8_t>{'x'});
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link.raw"));
  EXPECT_EQ(folder.Read("store/a.raw"), "x");
}

TEST(ReplacingFile, AFolderThatDoesNotExistIsNamed) {
  const TemporaryFolder folder;
  EXPECT_EQ(Failure_Of([&] { ReplacingFile(folder.File("none/a.raw"), 3); }),
            "Path not found: none/a.raw");
}

TEST(ReplacingFile, AFolderOrADeviceCannotBeReplaced) {
  const TemporaryFolder folder;
  folder.Make_Folder("a.raw");
  EXPECT_NE(Failure_Of([&] { ReplacingFile(folder.File("a.raw"), 3); }).find("it is a folder"),
            std::string::npos);
  const FilePath device{"/dev/null", "/dev/null"};
  EXPECT_NE(Failure_Of([&] { ReplacingFile(device, 3); }).find("not an ordinary file"),
            std::string::npos);
}

TEST(ReplacingFile, ASizeThatNoDiskHoldsIsRejectedAtOnce) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.raw", "old");
  EXPECT_NE(Failure_Of([&] { ReplacingFile(file, std::uint64_t{1} << 60); }), "no failure");
  EXPECT_EQ(folder.Read("a.raw"), "old");
  EXPECT_EQ(Entries(folder.Path()), 1u);
}

}  // namespace
}  // namespace sylvomex
