// SPDX-License-Identifier: MIT
#include "platform/file_watch.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/wall_clock.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct Seen : FileWatch {
  std::set<std::string> read;
  FileWatch* former = Set_File_Watch(this);
  Seen() = default;
  ~Seen() override { Set_File_Watch(former); }
  void Reads(const FilePath& file, int, const struct stat& status) override {
    read.insert(file.name + " " + std::to_string(status.st_size));
  }
};

TEST(FileWatch, SeesWhatIsReadAndNotWhatIsWritten) {
  const TemporaryFolder folder;
  const FilePath a = folder.Write("a", "12345");
  const FilePath b = folder.Write("b", "1");
  const Seen seen;
  Read_Whole_File(a);
  MappedFile{b};
  Append_To_File(folder.File("c"), "line\n");
  Write_Whole_File(folder.File("d"), std::string_view("text"));
  Replace_Whole_File(folder.File("e"), {});
  EXPECT_EQ(seen.read, (std::set<std::string>{"a 5", "b 1"}));
}

TEST(FileWatch, LimitsWhatReadersAreGiven) {
  struct Hiding : Seen {
    std::uint64_t Visible_Bytes(const FilePath&, std::uint64_t size) override {
      return std::min<std::uint64_t>(size, 3);
    }
  };
  const TemporaryFolder folder;
  const FilePath a = folder.Write("a", "12345");
  const Hiding hiding;
  EXPECT_EQ(Read_Whole_File(a), "123");
  const PositionalFile file(a);
  std::array<std::uint8_t, 5> bytes{};
  EXPECT_EQ(file.Size(), 3U);
  EXPECT_EQ(file.Read_At(1, bytes), 2U);
  EXPECT_EQ(file.Read_At(4, bytes), 0U);
}

TEST(WallClock, StandsWhereItIsHeld) {
  Hold_Wall_Clock(1000);
  EXPECT_EQ(Wall_Clock(), 1000);
  Hold_Wall_Clock(std::nullopt);
  EXPECT_GT(Wall_Clock(), 1700000000);
}

}  // namespace
}  // namespace sylvomex
