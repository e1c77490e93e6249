// SPDX-License-Identifier: MIT
#include "platform/guest_files.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"
#include "support/environment_variable.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

bool Is_Refusal(const std::string& failure) {
  return failure.starts_with(Failure_Text(Failure::PermissionDenied));
}

struct GuestFilesTest : testing::Test {
  TemporaryFolder root;
  DriveMap drives = root.Drives();
  FilePath Data(const char* name) { return drives.Locate(std::string("c:\\data\\") + name); }
  GuestFilesTest() { root.Write("c/data/kept.txt", "kept\n"); }
};

TEST_F(GuestFilesTest, ScratchFilesOfTheOnlyProgramLieOnTheirDrive) {
  EXPECT_EQ(Scratch_File(drives, "c:\\data\\pic0.bmp").native, root.Path() / "c/data/pic0.bmp");
}

TEST_F(GuestFilesTest, ScratchFilesOfAGuestLieElsewhereUnderTheSameName) {
  std::filesystem::path own;
  {
    const GuestFiles guest(root.Path(), GuestAccess::ReadsAndWrites);
    const FilePath file = Scratch_File(drives, "c:\\data\\pic0.bmp");
    own = file.native;
    Write_Whole_File(file, "mine");
    EXPECT_EQ(file.name, "c:\\data\\pic0.bmp");
    EXPECT_EQ(Read_Whole_File(Scratch_File(drives, "C:\\Data\\PIC0.BMP")), "mine");
  }
  EXPECT_FALSE(root.Has("c/data/pic0.bmp"));
  EXPECT_FALSE(std::filesystem::exists(own.parent_path()));
}

TEST_F(GuestFilesTest, WithoutAFolderForTemporaryFilesTheUsualOneServes) {
  for (const std::string& place : {root.File("c/data/kept.txt").native.string(), std::string()}) {
    const EnvironmentVariable temporary("TMPDIR", place);
    const GuestFiles guest(root.Path(), GuestAccess::ReadsAndWrites);
    const FilePath file = Scratch_File(drives, "c:\\data\\pic0.bmp");
    EXPECT_EQ(file.native.parent_path().parent_path(), "/tmp") << place;
  }
}

TEST_F(GuestFilesTest, AFolderThatTakesNothingIsNamed) {
  const EnvironmentVariable temporary("TMPDIR", "/proc");
  const std::string told =
      Failure_Of([&] { const GuestFiles guest(root.Path(), GuestAccess::ReadsAndWrites); });
  EXPECT_NE(told.find("/proc/sylvomex_guest_"), std::string::npos) << told;
}

TEST_F(GuestFilesTest, GuestThatWritesWritesTheOtherFilesOfTheRoot) {
  const GuestFiles guest(root.Path(), GuestAccess::ReadsAndWrites);
  Append_To_File(Data("kept.txt"), "more\n");
  EXPECT_EQ(root.Read("c/data/kept.txt"), "kept\nmore\n");
}

TEST_F(GuestFilesTest, GuestThatOnlyReadsLeavesEveryFileOfTheRootAsItWas) {
  const GuestFiles guest(root.Path(), GuestAccess::ReadsOnly);
  const FilePath kept = Data("kept.txt");
  const auto refused = [](auto&& act) { EXPECT_TRUE(Is_Refusal(Failure_Of(act))); };
  refused([&] { Append_To_File(kept, "more"); });
  refused([&] { Write_Whole_File(kept, std::string_view("less")); });
  refused([&] { Write_Whole_File(Data("new.txt"), std::string_view("new")); });
  refused([&] { Replace_Whole_File(kept, {}); });
  refused([&] { Delete_File(kept); });
  refused([&] { Delete_Matching(drives, "c:\\data\\*.txt"); });
  EXPECT_EQ(Read_Whole_File(kept), "kept\n");
  EXPECT_FALSE(root.Has("c/data/new.txt"));
  Write_Whole_File(Scratch_File(drives, "c:\\data\\pic0.bmp"), std::string_view("mine"));
}

TEST_F(GuestFilesTest, GuestThatOnlyReadsWritesOutsideTheRoot) {
  const TemporaryFolder elsewhere;
  std::filesystem::create_directory_symlink(root.Path(), elsewhere.Path() / "way_in");
  const GuestFiles guest(root.Path(), GuestAccess::ReadsOnly);
  Write_Whole_File(elsewhere.File("a.txt"), std::string_view("a"));
  const FilePath way_in = elsewhere.File("way_in/c/data/kept.txt");
  EXPECT_TRUE(Is_Refusal(Failure_Of([&] { Write_Whole_File(way_in, std::string_view("less")); })));
}

}  // namespace
}  // namespace sylvomex
