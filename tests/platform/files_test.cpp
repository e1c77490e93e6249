// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

#include "platform/run_time_error.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

template <class Action>
void Expect_Failure(Failure kind, const std::string& message, Action action) {
  try {
    action();
    FAIL() << "no failure, expected: " << message;
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), kind);
    EXPECT_EQ(error.what(), message);
  }
}

std::vector<std::uint8_t> Bytes(std::string_view text) { return {text.begin(), text.end()}; }

std::string Text(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

const FilePath kNoFile;

class Files : public testing::Test {
 protected:
  TemporaryFolder folder;
};

/// Drops root's privileges for a scope, so that file permissions apply.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() { was_root_ = geteuid() == 0 && seteuid(65534) == 0; }
  ~AsOrdinaryUser() {
    if (was_root_ && seteuid(0) != 0) std::abort();
  }
  AsOrdinaryUser(const AsOrdinaryUser&) = delete;
  AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

 private:
  bool was_root_ = false;
};

TEST_F(Files, ReadsAFileWholeAsItIs) {
  const std::string content("a\0b\r\n\xff\x1a", 7);
  EXPECT_EQ(Read_Whole_File(folder.Write("a.bin", content)), content);
  EXPECT_EQ(Read_Whole_File(folder.Write("empty", "")), "");
}

TEST_F(Files, ReadsFilesOfUnknownLength) {
  const std::string status = Read_Whole_File({"/proc/self/status", "/proc/self/status"});
  EXPECT_NE(status.find("Pid:"), std::string::npos);
}

TEST_F(Files, AMissingFileIsNamedAsTheOperatorKnowsIt) {
  const FilePath file{"c:\\data\\a.hdr", folder.Path() / "c/data/a.hdr"};
  Expect_Failure(Failure::FileNotFound, "File not found: c:\\data\\a.hdr",
                 [&] { Read_Whole_File(file); });
  Expect_Failure(Failure::FileNotFound, "File not found: c:\\data\\a.hdr",
                 [&] { PositionalFile{file}; });
  Expect_Failure(Failure::FileNotFound, "File not found: c:\\data\\a.hdr",
                 [&] { MappedFile{file}; });
  Expect_Failure(Failure::FileNotFound, "File not found: c:\\data\\a.hdr",
                 [&] { Overwrite_Start(file, Bytes("x")); });
}

TEST_F(Files, NoFileChosenIsAFileNotFound) {
  const std::string message = "File not found: no file was chosen";
  Expect_Failure(Failure::FileNotFound, message, [] { Read_Whole_File(kNoFile); });
  Expect_Failure(Failure::FileNotFound, message, [] { Write_Whole_File(kNoFile, "x"); });
  Expect_Failure(Failure::FileNotFound, message, [] { Append_To_File(kNoFile, "x"); });
  Expect_Failure(Failure::FileNotFound, message, [] { Delete_File(kNoFile); });
  Expect_Failure(Failure::FileNotFound, message, [] { MappedFile{kNoFile}; });
  EXPECT_FALSE(File_Exists(kNoFile));
}

TEST_F(Files, WritingIntoAMissingFolderIsAPathNotFound) {
  const FilePath file = folder.File("none/a.txt");
  Expect_Failure(Failure::PathNotFound, "Path not found: none/a.txt",
                 [&] { Write_Whole_File(file, "x"); });
  Expect_Failure(Failure::PathNotFound, "Path not found: none/a.txt",
                 [&] { Append_To_File(file, "x"); });
  EXPECT_FALSE(folder.Has("none"));
}

TEST_F(Files, AFolderInPlaceOfAFileIsAFileError) {
  folder.Make_Folder("sub");
  const FilePath file = folder.File("sub");
  const std::string message = "File error: sub, it is a folder";
  Expect_Failure(Failure::FileFailure, message, [&] { Read_Whole_File(file); });
  Expect_Failure(Failure::FileFailure, message, [&] { Write_Whole_File(file, "x"); });
  Expect_Failure(Failure::FileFailure, message, [&] { Append_To_File(file, "x"); });
  Expect_Failure(Failure::FileFailure, message, [&] { PositionalFile{file}; });
  Expect_Failure(Failure::FileFailure, message, [&] { MappedFile{file}; });
  Expect_Failure(Failure::FileFailure, message, [&] { Delete_File(file); });
  EXPECT_FALSE(File_Exists(file));
}

TEST_F(Files, AFolderThatMayNotBeEnteredIsAPermissionDenied) {
  const FilePath file = folder.Write("locked/a.txt", "x");
  ASSERT_EQ(chmod((folder.Path() / "locked").c_str(), 0), 0);
  {
    const AsOrdinaryUser user;
    Expect_Failure(Failure::PermissionDenied, "Permission denied: locked/a.txt",
                   [&] { Read_Whole_File(file); });
    Expect_Failure(Failure::PermissionDenied, "Permission denied: locked/a.txt",
                   [&] { Append_To_File(file, "x"); });
  }
  chmod((folder.Path() / "locked").c_str(), 0700);
}

TEST_F(Files, AFullDiskIsReported) {
  const FilePath file = folder.File("a.txt");
  const FileSizeLimit limit(3);
  Expect_Failure(Failure::DiskFull, "Disk full: a.txt", [&] { Append_To_File(file, "line\n"); });
  Expect_Failure(Failure::DiskFull, "Disk full: a.txt", [&] { Write_Whole_File(file, "line\n"); });
}

TEST_F(Files, NamesWithAZeroByteAreNotFound) {
  const std::string name("a\0b", 3);
  folder.Write("a", "x");
  EXPECT_THROW(Read_Whole_File(folder.File(name)), RunTimeError);
}

TEST_F(Files, RewritingLeavesNoTailOfTheOldContent) {
  const FilePath file = folder.Write("pic0.bmp", "a longer content");
  Write_Whole_File(file, "short");
  EXPECT_EQ(folder.Read("pic0.bmp"), "short");
  Write_Whole_File(file, Bytes("longer than before"));
  EXPECT_EQ(folder.Read("pic0.bmp"), "longer than before");
  Write_Whole_File(file, "");
  EXPECT_EQ(folder.Read("pic0.bmp"), "");
}

TEST_F(Files, AppendingCreatesTheFileAndAddsToIt) {
  const FilePath file = folder.File("points.txt");
  Append_To_File(file, "1,2\n");
  Append_To_File(file, "3,4\n");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,4\n");
}

TEST_F(Files, APartialAppendIsUndone) {
  const FilePath file = folder.Write("points.txt", "1,2\n");
  {
    const FileSizeLimit limit(7);
    Expect_Failure(Failure::DiskFull, "Disk full: points.txt",
                   [&] { Append_To_File(file, "3,4,5,6\n"); });
  }
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n");
}

TEST_F(Files, AnAppendThatDoesNotFitAtAllLeavesTheFile) {
  const FilePath file = folder.Write("points.txt", "1,2\n");
  {
    const FileSizeLimit limit(4);
    Expect_Failure(Failure::DiskFull, "Disk full: points.txt",
                   [&] { Append_To_File(file, "3,4\n"); });
  }
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n");
}

TEST_F(Files, OverwritingTheStartLeavesTheRest) {
  const FilePath file = folder.Write("a.bin", "abcdef");
  Overwrite_Start(file, Bytes("XY"));
  EXPECT_EQ(folder.Read("a.bin"), "XYcdef");
}

TEST_F(Files, DeletingAMissingFileIsNotAnError) {
  const FilePath file = folder.Write("a.txt", "x");
  EXPECT_TRUE(File_Exists(file));
  Delete_File(file);
  EXPECT_FALSE(File_Exists(file));
  EXPECT_NO_THROW(Delete_File(file));
  EXPECT_NO_THROW(Delete_File(folder.File("none/a.txt")));
}

TEST_F(Files, PositionalReadsEndWithTheFile) {
  const PositionalFile file(folder.Write("a.raw", "0123456789"));
  EXPECT_EQ(file.Size(), 10u);
  std::vector<std::uint8_t> buffer(4);
  EXPECT_EQ(file.Read_At(2, buffer), 4u);
  EXPECT_EQ(Text(buffer), "2345");
  EXPECT_EQ(file.Read_At(8, buffer), 2u);
  EXPECT_EQ(Text(std::span(buffer).first(2)), "89");
  EXPECT_EQ(file.Read_At(10, buffer), 0u);
  EXPECT_EQ(file.Read_At(std::int64_t{1} << 60, buffer), 0u);
}

TEST_F(Files, ANegativePositionIsAFileError) {
  const PositionalFile file(folder.Write("a.raw", "0123456789"));
  std::vector<std::uint8_t> buffer(4);
  Expect_Failure(Failure::FileFailure, "File error: a.raw, position -4",
                 [&] { file.Read_At(-4, buffer); });
}

TEST_F(Files, APositionalFileCanBeMoved) {
  PositionalFile first(folder.Write("a.raw", "0123456789"));
  const PositionalFile second(std::move(first));
  std::vector<std::uint8_t> buffer(3);
  EXPECT_EQ(second.Read_At(0, buffer), 3u);
  EXPECT_EQ(Text(buffer), "012");
}

TEST_F(Files, DevicesCannotBeReadAtPositions) {
  const FilePath zero{"/dev/zero", "/dev/zero"};
  Expect_Failure(Failure::FileFailure, "File error: /dev/zero, it is not an ordinary file",
                 [&] { PositionalFile{zero}; });
  Expect_Failure(Failure::FileFailure, "File error: /dev/zero, it is not an ordinary file",
                 [&] { MappedFile{zero}; });
}

TEST_F(Files, MappedBytesEqualTheFile) {
  const MappedFile mapped(folder.Write("a.raw", "0123456789"));
  EXPECT_EQ(Text(mapped.Bytes()), "0123456789");
  EXPECT_EQ(mapped.File().name, "a.raw");
  EXPECT_TRUE(mapped.Is_Current());
}

TEST_F(Files, AnEmptyFileMapsToNoBytes) {
  const MappedFile mapped(folder.Write("empty.raw", ""));
  EXPECT_TRUE(mapped.Bytes().empty());
  EXPECT_TRUE(mapped.Is_Current());
}

TEST_F(Files, AMappedFileDetectsThatItWasTruncatedReplacedOrRemoved) {
  const FilePath file = folder.Write("a.raw", "0123456789");
  const MappedFile first(file);
  std::filesystem::resize_file(file.native, 5);
  EXPECT_FALSE(first.Is_Current());

  const MappedFile second(file);
  folder.Write("b.raw", "abcde");
  std::filesystem::rename(folder.Path() / "b.raw", file.native);
  EXPECT_FALSE(second.Is_Current());

  const MappedFile third(file);
  Delete_File(file);
  EXPECT_FALSE(third.Is_Current());
}

TEST_F(Files, AMappedFileDetectsThatItWasRewrittenAtTheSameLength) {
  const FilePath file = folder.Write("a.raw", "0123456789");
  const MappedFile mapped(file);
  const auto later = std::filesystem::last_write_time(file.native) + std::chrono::seconds(2);
  std::filesystem::last_write_time(file.native, later);
  EXPECT_FALSE(mapped.Is_Current());
}

TEST_F(Files, DeleteMatchingRemovesFilesOfThePatternIgnoringCase) {
  for (const char* name : {"a.txt", "B.TXT", "c.Txt", "d.hdr", "txt"}) {
    folder.Write(std::string("c/data/ImaFiles/") + name, "x");
  }
  folder.Make_Folder("c/data/ImaFiles/folder.txt");
  folder.Write("c/data/e.txt", "x");
  Delete_Matching(folder.Drives(), "c:\\DATA\\imafiles\\*.txt");
  for (const char* name : {"a.txt", "B.TXT", "c.Txt"}) {
    EXPECT_FALSE(folder.Has(std::string("c/data/ImaFiles/") + name)) << name;
  }
  for (const char* name : {"ImaFiles/d.hdr", "ImaFiles/txt", "ImaFiles/folder.txt", "e.txt"}) {
    EXPECT_TRUE(folder.Has(std::string("c/data/") + name)) << name;
  }
}

TEST_F(Files, DeleteMatchingOfNothingIsNotAnError) {
  folder.Write("c/data/a.hdr", "x");
  EXPECT_NO_THROW(Delete_Matching(folder.Drives(), "c:\\data\\*.txt"));
  EXPECT_NO_THROW(Delete_Matching(folder.Drives(), "c:\\none\\*.txt"));
  EXPECT_TRUE(folder.Has("c/data/a.hdr"));
}

}  // namespace
}  // namespace sylvomex
