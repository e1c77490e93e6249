// SPDX-License-Identifier: MIT
// Appending to a file that other programs write as well, on a disk that fills up.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <thread>
#include <vector>

#include "platform/append_witness.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/operator_notices.h"
#include "support/failure_of.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

using std::chrono::milliseconds;

struct AppendFile : testing::Test {
  TemporaryFolder folder;
  ~AppendFile() override {
    Set_Append_Witness(nullptr);
    Take_Notices();
  }
};

TEST_F(AppendFile, AFileWhoseLastLineIsTornGetsTheNewLineOnALineOfItsOwn) {
  const FilePath file = folder.Write("points.txt", "1,2\n3,");
  Append_To_File(file, "5,6\n");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,\n5,6\n");
}

TEST_F(AppendFile, TheOperatorIsToldOfATornLineOnceForEachFile) {
  const FilePath file = folder.Write("points.txt", "3,");
  Append_To_File(file, "5,6\n");
  const std::vector<std::string> told{
      "The last line of points.txt had no line end and may be incomplete. The new line stands on a "
      "line of its own."};
  EXPECT_EQ(Take_Notices(), told);
  folder.Write("points.txt", "3,");
  Append_To_File(file, "5,6\n");
  EXPECT_TRUE(Take_Notices().empty());
  Append_To_File(folder.Write("others.txt", "3,"), "5,6\n");
  EXPECT_EQ(Take_Notices().size(), 1u);
}

TEST_F(AppendFile, WholeLinesAndEmptyFilesAreNothingToTell) {
  Append_To_File(folder.File("new.txt"), "1\n");
  Append_To_File(folder.Write("empty.txt", ""), "1\n");
  Append_To_File(folder.Write("two_bytes.txt", "1\r\n"), "2\n");
  EXPECT_TRUE(Take_Notices().empty());
  EXPECT_EQ(folder.Read("two_bytes.txt"), "1\r\n2\n");
}

TEST_F(AppendFile, ALineTornWithinItsTwoByteEndIsCompleted) {
  Append_To_File(folder.Write("points.txt", "1\r"), "2\n");
  EXPECT_EQ(folder.Read("points.txt"), "1\r\n2\n");
}

TEST_F(AppendFile, AnEmptyTextCreatesTheFileAndMendsNothing) {
  Append_To_File(folder.File("new.txt"), "");
  EXPECT_EQ(folder.Read("new.txt"), "");
  Append_To_File(folder.Write("torn.txt", "3,"), "");
  EXPECT_EQ(folder.Read("torn.txt"), "3,");
}

TEST_F(AppendFile, ATornLineStaysTornWhenTheDiskIsFull) {
  const FilePath file = folder.Write("points.txt", "1,2\n3,");
  {
    const FileSizeLimit limit(8);
    EXPECT_EQ(Failure_Of([&] { Append_To_File(file, "5,6\n"); }), "Disk full: points.txt");
  }
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,");
  EXPECT_TRUE(Take_Notices().empty());
}

TEST_F(AppendFile, AFileThatMayNotBeReadIsAppendedTo) {
  const FilePath file = folder.Write("points.txt", "1\n");
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(file.native.c_str(), 0222), 0);
  const bool is_root = geteuid() == 0 && seteuid(65534) == 0;
  Append_To_File(file, "2\n");
  if (is_root) {
    ASSERT_EQ(seteuid(0), 0);
  }
  ASSERT_EQ(chmod(file.native.c_str(), 0644), 0);
  EXPECT_EQ(folder.Read("points.txt"), "1\n2\n");
}

TEST_F(AppendFile, WaitsForAnotherProgramThatHasTheFileLocked) {
  const FilePath file = folder.Write("points.txt", "1\n");
  auto held = Open_Locked(file, O_RDWR);
  std::thread other([&] {
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_EQ(folder.Read("points.txt"), "1\n");
    held.reset();
  });
  Append_To_File(file, "2\n");
  other.join();
  EXPECT_EQ(folder.Read("points.txt"), "1\n2\n");
}

TEST_F(AppendFile, ALockThatIsNeverGivenBackIsAClearMessage) {
  const FilePath file = folder.Write("points.txt", "1\n");
  const auto held = Open_Locked(file, O_RDWR);
  EXPECT_EQ(Failure_Of([&] { Open_Locked(file, O_RDWR, milliseconds(50)); }),
            "File error: points.txt, another program has kept it locked for 1 second");
}

TEST_F(AppendFile, AFileReplacedWhileWaitingIsTheOneThatIsAppendedTo) {
  const FilePath file = folder.Write("points.txt", "old\n");
  auto held = Open_Locked(file, O_RDWR);
  std::thread other([&] {
    std::this_thread::sleep_for(milliseconds(50));
    const FilePath fresh = folder.Write("fresh.txt", "new\n");
    std::filesystem::rename(fresh.native, file.native);
    held.reset();
  });
  Append_To_File(file, "2\n");
  other.join();
  EXPECT_EQ(folder.Read("points.txt"), "new\n2\n");
}

// Writes down what it is asked, and may claim that a text stands in its file already.
struct WritingWitness : AppendWitness {
  std::string told;
  bool already_written = false;

  bool Already_Written(const FilePath& file, std::string_view text) override {
    told += "asked " + file.name + " " + std::string(text);
    return already_written;
  }
  void Will_Append(const FilePath&, std::uint64_t offset, std::string_view text) override {
    told += "will " + std::to_string(offset) + " " + std::string(text);
  }
  void Has_Appended(const FilePath&, std::uint64_t offset, std::string_view text) override {
    told += "has " + std::to_string(offset) + " " + std::string(text);
  }
  void Not_Appended(const FilePath&, std::uint64_t offset, std::string_view text) override {
    told += "not " + std::to_string(offset) + " " + std::string(text);
  }
};

TEST_F(AppendFile, AWitnessSeesWhereEachTextBegins) {
  WritingWitness witness;
  EXPECT_EQ(Set_Append_Witness(&witness), nullptr);
  const FilePath file = folder.Write("points.txt", "1\n");
  Append_To_File(file, "2\n");
  EXPECT_EQ(witness.told, "asked points.txt 2\nwill 2 2\nhas 2 2\n");
  witness.told.clear();
  folder.Write("points.txt", "torn");
  Append_To_File(file, "3\n");
  EXPECT_EQ(witness.told, "asked points.txt 3\nwill 5 3\nhas 5 3\n");
  EXPECT_EQ(folder.Read("points.txt"), "torn\n3\n");
  EXPECT_EQ(Set_Append_Witness(nullptr), &witness);
}

TEST_F(AppendFile, AWitnessHearsOfAFileBeforeItIsMade) {
  struct Opening : WritingWitness {
    void Will_Open(const FilePath& file, bool is_missing) override {
      told += is_missing ? "makes " : "opens ";
      told += file.name + (std::filesystem::exists(file.native) ? ", there\n" : ", not there\n");
    }
  } witness;
  Set_Append_Witness(&witness);
  const FilePath file = folder.File("points.txt");
  Append_To_File(file, "");
  Append_To_File(file, "1\n");
  EXPECT_EQ(witness.told,
            "makes points.txt, not there\nopens points.txt, there\n"
            "asked points.txt 1\nwill 0 1\nhas 0 1\n");
}

TEST_F(AppendFile, ATextThatItsWitnessKnowsToBeWrittenIsNotRepeated) {
  WritingWitness witness;
  witness.already_written = true;
  Set_Append_Witness(&witness);
  const FilePath file = folder.Write("points.txt", "1\n");
  Append_To_File(file, "1\n");
  EXPECT_EQ(folder.Read("points.txt"), "1\n");
  EXPECT_EQ(witness.told, "asked points.txt 1\n");
}

TEST_F(AppendFile, AWitnessIsToldOfAnAppendThatFailed) {
  WritingWitness witness;
  Set_Append_Witness(&witness);
  const FilePath file = folder.Write("points.txt", "1\n");
  {
    const FileSizeLimit limit(4);
    EXPECT_EQ(Failure_Of([&] { Append_To_File(file, "234\n"); }), "Disk full: points.txt");
  }
  EXPECT_EQ(witness.told, "asked points.txt 234\nwill 2 234\nnot 2 234\n");
  EXPECT_EQ(folder.Read("points.txt"), "1\n");
}

TEST_F(AppendFile, AWitnessIsAskedWithTheFileLocked) {
  struct Locking : WritingWitness {
    std::string tried;
    bool Already_Written(const FilePath& file, std::string_view) override {
      tried = Failure_Of([&] { Open_Locked(file, O_RDWR, milliseconds(1)); });
      return false;
    }
  } witness;
  Set_Append_Witness(&witness);
  Append_To_File(folder.File("points.txt"), "1\n");
  EXPECT_EQ(witness.tried,
            "File error: points.txt, another program has kept it locked for 1 second");
}

/// A program of its own that runs `work` and ends with its result.
class OtherProgram {
 public:
  template <class Work>
  explicit OtherProgram(Work work) : process_(fork()) {
    if (process_ == 0) _exit(work());
  }
  [[nodiscard]] int Result() const {
    int status = -1;
    waitpid(process_, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_;
};

std::string Line(char program, int number) {
  return std::string(1, program) + "," + std::to_string(number) + "," + std::string(40, program) +
         "\n";
}

/// Takes its time between the look at the file and the write.
struct SlowWitness : WritingWitness {
  void Will_Append(const FilePath&, std::uint64_t, std::string_view) override {
    std::this_thread::sleep_for(std::chrono::microseconds(300));
  }
};

/// Appends lines on a disk that has room for a part of every other line only, and writes down the
/// lines that were accepted.
int Append_On_A_Full_Disk(const FilePath& file, const std::filesystem::path& accepted, int lines) {
  SlowWitness witness;
  Set_Append_Witness(&witness);
  std::ofstream list(accepted);
  for (int i = 0; i < lines; ++i) {
    std::optional<FileSizeLimit> limit;
    if (i % 2 == 0) limit.emplace(std::filesystem::file_size(file.native) + 20);
    if (Failure_Of([&] { Append_To_File(file, Line('a', i)); }) != "no failure") continue;
    limit.reset();
    list << Line('a', i);
  }
  return 0;
}

int Append_All(const FilePath& file, int lines) {
  for (int i = 0; i < lines; ++i) Append_To_File(file, Line('b', i));
  return 0;
}

TEST_F(AppendFile, TwoProgramsOnOneFileAndAFullDiskLoseNoAcceptedLine) {
  constexpr int kLines = 500;
  const FilePath file = folder.Write("points.txt", "");
  const OtherProgram first(
      [&] { return Append_On_A_Full_Disk(file, folder.Path() / "accepted.txt", kLines); });
  const OtherProgram second([&] { return Append_All(file, kLines); });
  ASSERT_EQ(first.Result(), 0);
  ASSERT_EQ(second.Result(), 0);

  std::istringstream written(folder.Read("points.txt"));
  std::multiset<std::string> lines;
  for (std::string line; std::getline(written, line);) lines.insert(line + "\n");
  std::multiset<std::string> expected;
  for (int i = 0; i < kLines; ++i) expected.insert(Line('b', i));
  std::istringstream accepted(folder.Read("accepted.txt"));
  for (std::string line; std::getline(accepted, line);) expected.insert(line + "\n");
  EXPECT_GT(expected.size(), static_cast<std::size_t>(kLines) + kLines / 4);
  EXPECT_EQ(lines, expected);
}

}  // namespace
}  // namespace sylvomex
