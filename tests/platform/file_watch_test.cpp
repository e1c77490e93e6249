// SPDX-License-Identifier: MIT
#include "platform/file_watch.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"
#include "platform/wall_clock.h"
#include "platform/write_witness.h"
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

TEST(FileWatch, TellsWhereReadersOpenAFile) {
  struct Elsewhere : Seen {
    FilePath other;
    std::filesystem::path Place_To_Read(const FilePath&) override { return other.native; }
  };
  const TemporaryFolder folder;
  const FilePath a = folder.Write("a", "present");
  Elsewhere elsewhere;
  elsewhere.other = folder.Write("b", "former");
  EXPECT_EQ(Read_Whole_File(a), "former");
  EXPECT_EQ(PositionalFile(a).Size(), 6U);
  Write_Whole_File(a, std::string_view("new"));
  EXPECT_EQ(folder.Read("a"), "new");
  elsewhere.other = folder.File("none");
  EXPECT_FALSE(File_Exists(a));
  EXPECT_THROW(Read_Whole_File(a), RunTimeError);
}

TEST(WriteWitness, ReadsAFileBeforeThoseThatJoinedEarlierHearOfItsChange) {
  struct Noting : WriteWitness {
    explicit Noting(std::string& told, char name) : told_(told), name_(name) {}
    void Will_Change(const FilePath&, bool) override { told_ += name_; }
    void Has_Appended(const FilePath&, std::string_view) override {}
    std::string& told_;
    char name_;
  };
  const TemporaryFolder folder;
  std::string told;
  const Noting first(told, '1');
  const Noting second(told, '2');
  Write_Whole_File(folder.File("a"), std::string_view("text"));
  EXPECT_EQ(told, "21");
}

TEST(WallClock, StandsWhereItIsHeld) {
  Hold_Wall_Clock(1000);
  EXPECT_EQ(Wall_Clock(), 1000);
  Hold_Wall_Clock(std::nullopt);
  EXPECT_GT(Wall_Clock(), 1700000000);
}

}  // namespace
}  // namespace sylvomex
