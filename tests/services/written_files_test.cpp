// SPDX-License-Identifier: MIT
#include "services/written_files.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/replacing_file.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

class WrittenFilesTest : public testing::Test {
 protected:
  WrittenFilesTest() { folder_.Make_Folder("c/data"); }
  FilePath File(const std::string& name) const {
    return folder_.Drives().Locate("c:\\data\\" + name);
  }

  TemporaryFolder folder_;
  WrittenFiles written_;
};

TEST_F(WrittenFilesTest, NothingWrittenSaysNothing) { EXPECT_EQ(written_.Take(), ""); }

TEST_F(WrittenFilesTest, LinesAndWholeFilesAreToldInOrder) {
  Append_To_File(File("a.txt"), "1\n2\n");
  Write_Whole_File(File("sun.txt"), "1\n");
  EXPECT_EQ(written_.Take(), "2 lines added to c:\\data\\a.txt; c:\\data\\sun.txt written");
  EXPECT_EQ(written_.Take(), "");
}

TEST_F(WrittenFilesTest, LinesOfOneFileAreCountedTogether) {
  Append_To_File(File("a.txt"), "1\n");
  Append_To_File(File("a.txt"), "2\n");
  EXPECT_EQ(written_.Take(), "2 lines added to c:\\data\\a.txt");
}

TEST_F(WrittenFilesTest, AFileReplacedAsAWholeIsToldOnce) {
  Replace_Whole_File(File("big.raw"), {});
  EXPECT_EQ(written_.Take(), "c:\\data\\big.raw written");
}

TEST_F(WrittenFilesTest, ScratchAndRemovedFilesAreLeftOut) {
  Write_Whole_File(File("pic0.bmp"), "x");
  Write_Whole_File(File("gone.txt"), "x");
  Delete_File(File("gone.txt"));
  EXPECT_EQ(written_.Take(), "");
}

TEST_F(WrittenFilesTest, MoreThanThreeAreCounted) {
  for (const char* name : {"a.txt", "b.txt", "d.txt", "e.txt", "f.txt"}) {
    Write_Whole_File(File(name), "x");
  }
  EXPECT_EQ(written_.Take(),
            "c:\\data\\a.txt written; c:\\data\\b.txt written; c:\\data\\d.txt written and 2 more");
}

}  // namespace
}  // namespace sylvomex
