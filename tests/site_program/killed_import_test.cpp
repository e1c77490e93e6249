// SPDX-License-Identifier: MIT
// Imports that are killed at random moments, and imports on a full disk.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "site_program/imported_site.h"
#include "support/file_size_limit.h"
#include "support/las_files.h"

namespace sylvomex {
namespace {

struct KilledImport : ImportedSite {
  std::string Lidar(const std::string& name, double first_time) {
    TestLas las;
    for (int i = 0; i < 60000; ++i) {
      las.points.push_back(
          {384000.0 + i % 977, 6675000.0 + i % 1013, 150, 1, 1, first_time + 0.001 * i});
    }
    return folder.Write(name, las.Bytes()).native.string();
  }

  std::uint64_t Pulses() {
    std::uint64_t pulses = 0;
    const std::filesystem::path tiles = Native("c/data/als2007");
    if (!std::filesystem::exists(tiles)) return 0;
    for (const auto& entry : std::filesystem::directory_iterator(tiles)) {
      EXPECT_EQ((entry.file_size() - 4) % 207, 0U);
      pulses += (entry.file_size() - 4) / 207;
    }
    return pulses;
  }

  /// Imports in a process of its own that is killed after some milliseconds.
  void Import_And_Kill(const std::string& file, int milliseconds) {
    const pid_t child = fork();
    if (child == 0) {
      execl(SYLVOMEX_SITE_PROGRAM, "sylvomex-site", "import", "lidar", site.c_str(), file.c_str(),
            "--campaign", "2007", static_cast<char*>(nullptr));
      _exit(127);
    }
    usleep(static_cast<useconds_t>(milliseconds) * 1000);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
    }
  }
};

TEST_F(KilledImport, ASecondRunLeavesEveryEchoOnce) {
  const std::string first = Lidar("a.las", 0);
  const std::string second = Lidar("b.las", 1000);
  ASSERT_EQ(Import("lidar", {first, "--campaign", "2007"}).status, 0);
  ASSERT_EQ(Pulses(), 60000U);
  for (int milliseconds = 5; milliseconds < 200; milliseconds += 20) {
    Import_And_Kill(second, milliseconds);
  }
  const SitePlayed again = Import("lidar", {second, "--campaign", "2007"});
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(Pulses(), 120000U);
  EXPECT_FALSE(std::filesystem::exists(Native(".sylvomex-import")));
}

TEST_F(KilledImport, AFullDiskLeavesTheSiteAsItWas) {
  ASSERT_EQ(Import("lidar", {Lidar("a.las", 0), "--campaign", "2007"}).status, 0);
  const auto before = Content();
  const std::string second = Lidar("b.las", 1000);
  SitePlayed played;
  {
    const FileSizeLimit limit(100000);
    played = Import("lidar", {second, "--campaign", "2007"});
  }
  EXPECT_EQ(played.status, 3) << played.err;
  EXPECT_EQ(Content(), before);
}

}  // namespace
}  // namespace sylvomex
