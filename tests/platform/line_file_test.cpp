// SPDX-License-Identifier: MIT
#include "platform/line_file.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "support/failure_of.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(LineFile, ReplacesTheOldContent) {
  const TemporaryFolder folder;
  folder.Write("c/temp/maa.nod", "1,2,3\n4,5,6\n");
  const FilePath path = folder.Drives().Locate("c:\\temp\\maa.nod");
  LineFile file(path);
  EXPECT_EQ(Read_Whole_File(path), "");
}

TEST(LineFile, LinesAreInTheFileBeforeItIsClosed) {
  const TemporaryFolder folder;
  folder.Make_Folder("c/temp");
  const FilePath path = folder.Drives().Locate("c:\\temp\\maa.nod");
  LineFile file(path);
  file.Write("1,2,3\n");
  EXPECT_EQ(Read_Whole_File(path), "1,2,3\n");
  file.Write("4,5,6\n");
  file.Close();
  EXPECT_EQ(Read_Whole_File(path), "1,2,3\n4,5,6\n");
}

TEST(LineFile, ALineThatTheDiskTakesInPartOnlyIsTakenBack) {
  const TemporaryFolder folder;
  const FilePath path = folder.File("maa.nod");
  LineFile file(path);
  file.Write("1,2,3\n");
  {
    const FileSizeLimit limit(8);
    EXPECT_EQ(Failure_Of([&] { file.Write("4,5,6\n"); }), "Disk full: maa.nod");
  }
  file.Write("7,8,9\n");
  file.Close();
  EXPECT_EQ(folder.Read("maa.nod"), "1,2,3\n7,8,9\n");
}

TEST(LineFile, NamesAMissingFolder) {
  const TemporaryFolder folder;
  const FilePath path = folder.Drives().Locate("c:\\nowhere\\maa.nod");
  EXPECT_EQ(Failure_Of([&] { LineFile file(path); }), "Path not found: c:\\nowhere\\maa.nod");
}

}  // namespace
}  // namespace sylvomex
