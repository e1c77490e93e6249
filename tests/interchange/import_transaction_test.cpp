// SPDX-License-Identifier: MIT
#include "interchange/import_transaction.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>

#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "interchange/site.h"
#include "platform/root_lock.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

class ImportTransactionTest : public testing::Test {
 protected:
  ImportTransactionTest() { Init_Site(folder_.Path(), "EPSG:3067"); }

  std::map<std::string, std::string> Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
      const std::string name = fs::relative(entry.path(), folder_.Path()).string();
      contents[name] = entry.is_regular_file() ? folder_.Read(name) : "a folder";
    }
    return contents;
  }

  /// Plays a part of an import in a process that is killed at its end.
  template <class Part>
  void Killed_After(Part part) const {
    const pid_t child = fork();
    if (child == 0) {
      part();
      kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  TemporaryFolder folder_;
};

TEST_F(ImportTransactionTest, PutsAllFilesInPlaceAndKeepsTheEntry) {
  {
    ImportTransaction import(folder_.Path());
    import.TheSite().shift = WorldShift{1000, 2000};
    import.Write(folder_.Path() / "c/data/a.txt", "one");
    import.Write(folder_.Path() / "c/data/b/b.txt", "two");
    import.Commit({"dem", "", {{ "a.tif", "00", 3 }}, {}});
  }
  EXPECT_EQ(folder_.Read("c/data/a.txt"), "one");
  EXPECT_EQ(folder_.Read("c/data/b/b.txt"), "two");
  EXPECT_FALSE(folder_.Has(".sylvomex-import"));
  const Site site = Open_Site(folder_.Path());
  ASSERT_EQ(site.imports.size(), 1U);
  EXPECT_EQ(site.imports[0].time.size(), 20U);
  EXPECT_EQ(site.shift, (WorldShift{1000, 2000}));
}

TEST_F(ImportTransactionTest, LeavesTheSiteAsItWasWithoutCommit) {
  const auto before = Contents();
  {
    ImportTransaction import(folder_.Path());
    import.TheSite().shift = WorldShift{1000, 2000};
    import.Write(folder_.Path() / "c/data/a.txt", "one");
    import.Scratch_File("sorted");
  }
  EXPECT_EQ(Contents(), before);
}

TEST_F(ImportTransactionTest, RefusesASecondImportAtTheSameTime) {
  const ImportTransaction first(folder_.Path());
  EXPECT_THROW(ImportTransaction(folder_.Path()), Refused);
}

TEST_F(ImportTransactionTest, GoesOnWhileTheWorkstationWorksOnTheSite) {
  const RootLock workstation(folder_.Path());
  ASSERT_FALSE(workstation.Is_In_Use());
  ImportTransaction import(folder_.Path());
  import.Write(folder_.Path() / "c/data/a.txt", "one");
  import.Commit();
  EXPECT_EQ(folder_.Read("c/data/a.txt"), "one");
}

TEST_F(ImportTransactionTest, RefusesAFolderThatIsNoSite) {
  EXPECT_THROW(ImportTransaction(folder_.Path() / "nowhere"), Refused);
}

TEST_F(ImportTransactionTest, AKillBeforeTheDecisionLeavesNothing) {
  const auto before = Contents();
  Killed_After([this] {
    ImportTransaction import(folder_.Path());
    import.Write(folder_.Path() / "c/data/a.txt", "one");
    kill(getpid(), SIGKILL);
  });
  EXPECT_TRUE(folder_.Has(".sylvomex-import"));
  Open_Site(folder_.Path());
  EXPECT_EQ(Contents(), before);
}

TEST_F(ImportTransactionTest, ADecisionThatCannotBeReadRemovesNothing) {
  folder_.Write(".sylvomex-import/1_a.txt", "one");
  fs::create_symlink("/proc/self/mem", folder_.Path() / ".sylvomex-import/decided");  // EIO
  EXPECT_THROW(Open_Site(folder_.Path()), FailedOnTheWay);
  EXPECT_EQ(folder_.Read(".sylvomex-import/1_a.txt"), "one");
}

TEST_F(ImportTransactionTest, ADecisionThatIsCutOffMovesAndRemovesNothing) {
  folder_.Write(".sylvomex-import/1_a.txt", "one");
  for (const char* const cut : {"1_a.txt\nc/data/a.t", "1_a.txt\n", "1_a.txt"}) {
    folder_.Write(".sylvomex-import/decided", cut);
    const auto before = Contents();
    EXPECT_THROW(Open_Site(folder_.Path()), FailedOnTheWay) << cut;
    EXPECT_EQ(Contents(), before) << cut;
  }
}

TEST_F(ImportTransactionTest, ADecisionThatLeadsOutOfTheSiteIsRefused) {
  const TemporaryFolder outside;
  outside.Write("kept.txt", "kept");
  const std::string there = (outside.Path() / "kept.txt").string();
  folder_.Write(".sylvomex-import/1_a.txt", "one");
  const std::string up = "c/../../" + outside.Path().filename().string() + "/kept.txt";
  for (const std::string& list :
       {"1_a.txt\n" + there + "\n", "1_a.txt\n" + up + "\n", there + "\nc/data/a.txt\n"}) {
    folder_.Write(".sylvomex-import/decided", list);
    EXPECT_THROW(Open_Site(folder_.Path()), FailedOnTheWay) << list;
    EXPECT_EQ(outside.Read("kept.txt"), "kept") << list;
  }
}

TEST_F(ImportTransactionTest, AFileInThePlaceOfAFolderIsNamed) {
  folder_.Write(".sylvomex-import/1_a.txt", "one");
  folder_.Write(".sylvomex-import/decided", "1_a.txt\nc/data/wall/a.txt\n");
  folder_.Write("c/data/wall", "a file");
  try {
    Open_Site(folder_.Path());
    FAIL();
  } catch (const FailedOnTheWay& failure) {
    EXPECT_NE(std::string(failure.what()).find("c/data/wall"), std::string::npos) << failure.what();
  }
  EXPECT_EQ(folder_.Read(".sylvomex-import/1_a.txt"), "one");
}

TEST_F(ImportTransactionTest, AChecksumIsThatOfTheWholeFile) {
  EXPECT_THROW(File_Checksum("/proc/self/mem"), Refused);  // EIO
}

TEST_F(ImportTransactionTest, AKillAfterTheDecisionIsFinishedByTheNextRun) {
  Killed_After([this] {
    // What a kill between two renames leaves: the decision with files still to be moved.
    folder_.Write(".sylvomex-import/1_a.txt", "one");
    folder_.Write(".sylvomex-import/site.toml", "crs = \"EPSG:3067\"\nshift = [1000, 0, 0]\n");
    folder_.Write(".sylvomex-import/decided",
                  "0_gone.txt\nc/data/gone.txt\n1_a.txt\nc/data/a.txt\nsite.toml\nsite.toml\n");
    folder_.Write("c/data/gone.txt", "moved before the kill");
  });
  const Site site = Open_Site(folder_.Path());
  EXPECT_EQ(site.shift, (WorldShift{1000, 0}));
  EXPECT_EQ(folder_.Read("c/data/a.txt"), "one");
  EXPECT_EQ(folder_.Read("c/data/gone.txt"), "moved before the kill");
  EXPECT_FALSE(folder_.Has(".sylvomex-import"));
}

TEST_F(ImportTransactionTest, AFullDiskRemovesTheFilesOfThisImport) {
  const auto before = Contents();
  {
    const FileSizeLimit limit(1000);
    ImportTransaction import(folder_.Path());
    import.Write(folder_.Path() / "c/data/a.txt", "one");
    try {
      import.Write(folder_.Path() / "c/data/b.txt", std::string(5000, 'x'));
      FAIL() << "it was written";
    } catch (const FailedOnTheWay& failure) {
      EXPECT_NE(std::string(failure.what()).find("c/data/b.txt"), std::string::npos);
    }
  }
  EXPECT_EQ(Contents(), before);
}

TEST(FileChecksum, IsThePublishedSha256) {
  const TemporaryFolder folder;  // the one-block example of FIPS 180-4
  EXPECT_EQ(File_Checksum(folder.Write("abc", "abc").native),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Text_Checksum("abc"), File_Checksum(folder.File("abc").native));
  EXPECT_THROW(File_Checksum(folder.Path() / "missing"), Refused);
  EXPECT_THROW(File_Checksum(folder.Path()), Refused);
}

}  // namespace
}  // namespace sylvomex
