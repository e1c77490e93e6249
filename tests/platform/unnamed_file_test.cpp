// SPDX-License-Identifier: MIT
#include "platform/unnamed_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <vector>

#include "platform/run_time_error.h"
#include "support/failure_of.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::vector<std::uint8_t> Bytes(std::string_view text) { return {text.begin(), text.end()}; }

class UnnamedFiles : public testing::Test {
 protected:
  [[nodiscard]] FilePath Folder() const { return {"c:\\data", folder.Path()}; }
  [[nodiscard]] std::size_t Files_In_Folder() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
  TemporaryFolder folder;
};

TEST_F(UnnamedFiles, LeaveNothingBehindWithoutAName) {
  {
    const UnnamedFile file(Folder(), 10);
    file.Write_At(3, Bytes("abc"));
    EXPECT_EQ(Files_In_Folder(), 0u);
  }
  EXPECT_EQ(Files_In_Folder(), 0u);
}

TEST_F(UnnamedFiles, TakeThePlaceOfAFileAsAWhole) {
  folder.Write("a.raw", "an older and longer content");
  const UnnamedFile file(Folder(), 8);
  file.Write_At(2, Bytes("abc"));
  file.Replace(folder.File("a.raw"));
  EXPECT_EQ(folder.Read("a.raw"), std::string("\0\0abc\0\0\0", 8));
  EXPECT_EQ(Files_In_Folder(), 1u);
}

TEST_F(UnnamedFiles, GoToAnotherDiskByACopy) {
  std::string pattern = "/dev/shm/sylvomex_XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) GTEST_FAIL() << "no folder in /dev/shm";
  const FilePath other{"d:\\a.raw", std::filesystem::path(pattern) / "a.raw"};
  std::vector<std::uint8_t> content(9'000'001);
  for (std::size_t k = 0; k < content.size(); ++k) content[k] = static_cast<std::uint8_t>(k % 253);
  const UnnamedFile file(Folder(), content.size());
  file.Write_At(0, content);
  file.Replace(other);
  std::ifstream stream(other.native, std::ios::binary);
  const std::vector<std::uint8_t> copy{std::istreambuf_iterator<char>(stream), {}};
  EXPECT_TRUE(copy == content);
  std::filesystem::remove_all(pattern);
}

TEST_F(UnnamedFiles, NameWhatFails) {
  const FilePath none{"c:\\none", folder.Path() / "none"};
  EXPECT_EQ(Failure_Of([&] { UnnamedFile(none, 1); }), "File not found: c:\\none");
  const UnnamedFile file(Folder(), 1);
  const FilePath nowhere{"c:\\none\\a.raw", folder.Path() / "none/a.raw"};
  EXPECT_EQ(Failure_Of([&] { file.Replace(nowhere); }), "Path not found: c:\\none\\a.raw");
}

TEST_F(UnnamedFiles, ADiskWithoutTheRoomIsNoticedBeforehand) {
  EXPECT_EQ(Failure_Of([&] { UnnamedFile(Folder(), ~std::uint64_t{0}); }), "Disk full: c:\\data");
  const FileSizeLimit full(100);
  EXPECT_EQ(Failure_Of([&] { UnnamedFile(Folder(), 101); }), "Disk full: c:\\data");
}

}  // namespace
}  // namespace sylvomex
