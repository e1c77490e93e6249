// SPDX-License-Identifier: MIT
#include "platform/drive_map.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

class DriveMapTest : public testing::Test {
 protected:
  std::filesystem::path Native(std::string_view name) const { return drives.Locate(name).native; }

  TemporaryFolder folder;
  DriveMap drives{folder.Path()};
};

TEST_F(DriveMapTest, FindsFilesIgnoringCase) {
  folder.Write("c/Data/Pic0.BMP", "x");
  EXPECT_EQ(Native("C:\\dATA\\pic0.bmp"), folder.Path() / "c/Data/Pic0.BMP");
}

TEST_F(DriveMapTest, KeepsTheNameAsTheOperatorGaveIt) {
  EXPECT_EQ(drives.Locate("  C:\\Data\\x.hdr ").name, "C:\\Data\\x.hdr");
}

TEST_F(DriveMapTest, DriveNamesAreTheInverseOfLocate) {
  folder.Write("c/Data/Pic0.BMP", "x");
  for (const char* name : {"c:\\Data\\Pic0.BMP", "d:\\new\\x.hdr", "e:\\a b.txt"}) {
    EXPECT_EQ(drives.Drive_Name(Native(name)), name);
  }
}

TEST_F(DriveMapTest, PathsThatAreNotOnADriveStayNative) {
  for (const std::string& path : {std::string("/tmp/x.hdr"), (folder.Path() / "x.hdr").string(),
                                  (folder.Path() / "cc/x.hdr").string(), folder.Path().string(),
                                  (folder.Path() / "c/back\\slash.txt").string()}) {
    EXPECT_EQ(drives.Drive_Name(path), path);
  }
}

TEST_F(DriveMapTest, TheExactSpellingComesFirst) {
  folder.Write("c/data/A.txt", "1");
  folder.Write("c/data/a.txt", "2");
  EXPECT_EQ(Native("c:\\data\\a.txt"), folder.Path() / "c/data/a.txt");
  EXPECT_EQ(Native("c:\\data\\A.txt"), folder.Path() / "c/data/A.txt");
}

TEST_F(DriveMapTest, OfSeveralSpellingsTheFirstInSortedOrderIsTaken) {
  folder.Write("c/data/abC", "1");
  folder.Write("c/data/aBc", "2");
  folder.Write("c/data/Abc", "3");
  EXPECT_EQ(Native("c:\\data\\abc"), folder.Path() / "c/data/Abc");
}

TEST_F(DriveMapTest, NewNamesAreSpelledAsGivenInTheFolderFound) {
  folder.Make_Folder("c/DATA");
  EXPECT_EQ(Native("c:\\data\\New.Txt"), folder.Path() / "c/DATA/New.Txt");
  EXPECT_EQ(Native("c:\\data\\Sub\\New.Txt"), folder.Path() / "c/DATA/Sub/New.Txt");
}

TEST_F(DriveMapTest, DriveFoldersAreFoundIgnoringCase) {
  folder.Write("F/temp/a", "x");
  EXPECT_EQ(Native("f:\\temp\\a"), folder.Path() / "F/temp/a");
}

TEST_F(DriveMapTest, SlashesWorkAsBackslashes) {
  folder.Write("d/data/laser/a.bin", "x");
  EXPECT_EQ(Native("D:/data\\laser/A.BIN"), folder.Path() / "d/data/laser/a.bin");
}

TEST_F(DriveMapTest, BlanksAroundTheNameAreIgnored) {
  folder.Write("c/data/cells.raw", "x");
  EXPECT_EQ(Native("c:\\data\\cells.raw" + std::string(62, ' ')),
            folder.Path() / "c/data/cells.raw");
}

TEST_F(DriveMapTest, BlanksInsideTheNameCount) {
  folder.Write("c/my data/a b.txt", "x");
  EXPECT_EQ(Native("c:\\My Data\\A B.txt"), folder.Path() / "c/my data/a b.txt");
}

TEST_F(DriveMapTest, ParentFoldersNeverLeaveTheDrive) {
  EXPECT_EQ(Native("c:\\..\\..\\etc\\passwd"), folder.Path() / "c/etc/passwd");
  EXPECT_EQ(Native("c:\\data\\..\\..\\..\\x"), folder.Path() / "c/x");
  EXPECT_EQ(Native("c:/data/./sub/../x"), folder.Path() / "c/data/x");
}

TEST_F(DriveMapTest, NativeNamesAreUsedUnchanged) {
  EXPECT_EQ(Native("/tmp/Some/../File.txt"), "/tmp/Some/../File.txt");
  EXPECT_EQ(drives.Locate("/dev/full").name, "/dev/full");
}

TEST_F(DriveMapTest, NamesWithoutADriveLieOnDriveC) {
  EXPECT_EQ(Native("data\\a.txt"), folder.Path() / "c/data/a.txt");
  EXPECT_EQ(Native("\\data\\a.txt"), folder.Path() / "c/data/a.txt");
}

TEST_F(DriveMapTest, TheEmptyNameGivesAnEmptyPath) {
  EXPECT_TRUE(drives.Locate("").native.empty());
  EXPECT_TRUE(drives.Locate("   ").native.empty());
}

TEST_F(DriveMapTest, NamesTooLongForTheDiskAreTakenAsSpelled) {
  const std::string name(5000, 'x');
  EXPECT_EQ(Native("c:\\" + name), folder.Path() / "c" / name);
}

std::string Names(const std::vector<FilePath>& files) {
  std::string names;
  for (const FilePath& file : files) names += file.name + ";";
  return names;
}

TEST_F(DriveMapTest, MatchFindsFilesOfAPatternSortedByName) {
  folder.Write("c/data/b.TXT", "");
  folder.Write("c/data/A.txt", "");
  folder.Write("c/data/c.txt.old", "");
  folder.Write("c/data/d.hdr", "");
  folder.Make_Folder("c/data/folder.txt");
  const std::vector<FilePath> files = drives.Match("C:\\DATA\\*.txt");
  EXPECT_EQ(Names(files), "C:\\DATA\\A.txt;C:\\DATA\\b.TXT;");
  EXPECT_EQ(files.at(1).native, folder.Path() / "c/data/b.TXT");
}

TEST_F(DriveMapTest, MatchUnderstandsQuestionMarksAndSeveralStars) {
  folder.Write("c/rkuva0.bmp", "");
  folder.Write("c/rkuva12.bmp", "");
  folder.Write("c/xrkuvax.bmp", "");
  EXPECT_EQ(Names(drives.Match("c:\\rkuva?.bmp")), "c:\\rkuva0.bmp;");
  EXPECT_EQ(Names(drives.Match("c:\\*kuva*.b*p")),
            "c:\\rkuva0.bmp;c:\\rkuva12.bmp;c:\\xrkuvax.bmp;");
  EXPECT_EQ(Names(drives.Match("c:\\*")), "c:\\rkuva0.bmp;c:\\rkuva12.bmp;c:\\xrkuvax.bmp;");
}

TEST_F(DriveMapTest, MatchInAMissingFolderFindsNothing) {
  EXPECT_TRUE(drives.Match("c:\\data\\Imafiles\\*.txt").empty());
  EXPECT_TRUE(drives.Match("").empty());
}

TEST_F(DriveMapTest, MatchAcceptsNativePatterns) {
  folder.Write("native/a.txt", "");
  const std::string pattern = (folder.Path() / "native/*.txt").string();
  EXPECT_EQ(drives.Match(pattern).at(0).name, (folder.Path() / "native/a.txt").string());
}

}  // namespace
}  // namespace sylvomex
