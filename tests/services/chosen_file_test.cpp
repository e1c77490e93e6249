// SPDX-License-Identifier: MIT
#include "services/chosen_file.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

class ChosenFile : public testing::Test {
 protected:
  ChosenFile() { folder_.Write("c/data/a.hdr", "x"); }

  [[nodiscard]] std::string Name(const std::string& answer,
                                 const std::string& filter = "HDR files (*.hdr)|*.hdr") const {
    return Chosen_File_Name(folder_.Drives(), {"", filter, 1, ""}, answer);
  }
  [[nodiscard]] std::string Native(const std::string& name) const {
    return (folder_.Path() / name).string();
  }

  TemporaryFolder folder_;
};

TEST_F(ChosenFile, ADriveNameKeepsItsSpelling) {
  EXPECT_EQ(Name("C:\\Data\\a.hdr"), "C:\\Data\\a.hdr");
  EXPECT_EQ(Name("c:\\data\\none"), "c:\\data\\none");
  EXPECT_EQ(Name(""), "");
}

TEST_F(ChosenFile, ANativePathOnADriveGetsItsDriveName) {
  EXPECT_EQ(Name(Native("c/data/a.hdr")), "c:\\data\\a.hdr");
  EXPECT_EQ(Name(Native("e/new.hdr")), "e:\\new.hdr");
}

TEST_F(ChosenFile, APathOutsideTheDrivesStays) {
  EXPECT_EQ(Name("/tmp/a.hdr"), "/tmp/a.hdr");
  EXPECT_EQ(Name(Native("readme.hdr")), Native("readme.hdr"));
  EXPECT_EQ(Name(Native("photos/a.hdr")), Native("photos/a.hdr"));
}

TEST_F(ChosenFile, ATypedDriveNameLosesTheFolderThatTheDialogShowed) {
  EXPECT_EQ(Name(Native("c/data") + "/c:\\data\\a.hdr"), "c:\\data\\a.hdr");
  EXPECT_EQ(Name("/home/me/c:/data/a.hdr"), "c:/data/a.hdr");
}

TEST_F(ChosenFile, AMissingExtensionIsTakenFromTheFilterWhenThatFileExists) {
  EXPECT_EQ(Name("c:\\data\\a"), "c:\\data\\a.hdr");
  EXPECT_EQ(Name(Native("c/data/a")), "c:\\data\\a.hdr");
  EXPECT_EQ(Name("c:\\data\\a", "NOD files (*.nod)|*.nod"), "c:\\data\\a");
  EXPECT_EQ(Name("c:\\data\\a", "HDR files (*.*)|*.*"), "c:\\data\\a");
  folder_.Write("c/data/a", "without an ending");
  EXPECT_EQ(Name("c:\\data\\a"), "c:\\data\\a");
}

}  // namespace
}  // namespace sylvomex
