// SPDX-License-Identifier: MIT
#include "interchange/exported_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "interchange/killed_import.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

struct ExportedFiles : testing::Test {
  ExportedFiles() {
    fs::create_directories(site);
    fs::create_directories(out);
  }
  /// The entries of a folder and below.
  static std::size_t Entries(const fs::path& at) {
    const fs::recursive_directory_iterator all(at);
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }
  static void Write(const fs::path& file) { std::ofstream(file) << "content"; }

  TemporaryFolder folder;
  fs::path site = folder.Path() / "site", out = folder.Path() / "out";
};

TEST_F(ExportedFiles, GrowWithinTheSiteAndLeaveNothingThere) {
  {
    ExportedFile file(out / "a.gpkg", site);
    EXPECT_EQ(file.Partial().filename(), "a.gpkg");
    EXPECT_EQ(file.Partial().lexically_relative(site).begin()->string(), kExportFolder);
    Write(file.Partial());
    EXPECT_EQ(Entries(out), 0U);
    file.Commit();
  }
  EXPECT_EQ(folder.Read("out/a.gpkg"), "content");
  EXPECT_EQ(Entries(site), 0U);
}

TEST_F(ExportedFiles, AnAbandonedOneLeavesNothing) {
  {
    ExportedFile file(out / "a.gpkg", site);
    Write(file.Partial());
    Write(file.Partial().string() + "-journal");
  }
  EXPECT_EQ(Entries(site), 0U);
  EXPECT_EQ(Entries(out), 0U);
}

TEST_F(ExportedFiles, LieBesideTheirPlaceWhereTheSiteCannotBeWritten) {
  Write(site / kExportFolder);  // a file in the folder's place
  ExportedFile file(out / "a.gpkg", site);
  EXPECT_EQ(file.Partial().parent_path(), out);
  Write(file.Partial());
  file.Commit();
  EXPECT_EQ(folder.Read("out/a.gpkg"), "content");
  EXPECT_EQ(Entries(out), 1U);
}

TEST_F(ExportedFiles, AKilledOneGoesWithTheNextRunAndARunningOneStays) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const ExportedFile file(out / "a.gpkg", site);
    Write(file.Partial());
    (void)!write(ready[1], "x", 1);
    pause();
    _exit(1);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  Finish_Killed_Import(site);
  EXPECT_EQ(Entries(site), 3U);  // two folders and the file
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(Entries(site), 3U);
  EXPECT_EQ(Entries(out), 0U);
  Finish_Killed_Import(site);
  EXPECT_EQ(Entries(site), 0U);
  close(ready[0]);
  close(ready[1]);
}

}  // namespace
}  // namespace sylvomex
