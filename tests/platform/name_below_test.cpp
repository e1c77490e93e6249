// SPDX-License-Identifier: MIT
#include "platform/name_below.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(StaysBelow, PlainNamesAndNamesInFoldersDo) {
  for (const char* name : {"", "a.txt", "a/b.txt", "a\\b.txt", "a//b", ".", "./a", "a/..", "a/../b",
                           "a/b/../../c", "..a", "a..", "...", "12:30"}) {
    EXPECT_TRUE(Stays_Below(name)) << name;
  }
}

TEST(StaysBelow, NamesThatLeadUpDoNot) {
  for (const char* name :
       {"..", "../a", "..\\a", " ../a", "a/../..", "a/../../b", "a\\..\\../b", "a/./../../b/c/d"}) {
    EXPECT_FALSE(Stays_Below(name)) << name;
  }
}

TEST(StaysBelow, PathsOfTheirOwnDoNot) {
  for (const char* name : {"/a", "\\a", "c:\\a", "c:a", "Z:", " /a"}) {
    EXPECT_FALSE(Stays_Below(name)) << name;
  }
}

// The drive map resolves what the rule has judged: the two agree on what a name leads to.
TEST(StaysBelow, AgreesWithTheDriveMap) {
  const TemporaryFolder folder;
  folder.Make_Folder("c/data/hits");
  const DriveMap drives(folder.Path());
  const std::string hits = (folder.Path() / "c/data/hits").string() + "/";
  const std::vector<std::string> parts{"..", ".", "a", "b", ""};
  for (const std::string& first : parts) {
    for (const std::string& second : parts) {
      for (const std::string& third : parts) {
        const std::string name = "x" + first + "\\" + second + "/" + third + "/y.txt";
        const std::string native = drives.Locate("c:\\data\\hits\\" + name).native.string();
        EXPECT_EQ(Stays_Below(name), native.starts_with(hits)) << name;
      }
    }
  }
}

}  // namespace
}  // namespace sylvomex
