// SPDX-License-Identifier: MIT
#include "session/journal_folder.h"

#include <gtest/gtest.h>

#include "platform/wall_clock.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct JournalFolderTest : testing::Test {
  TemporaryFolder state, root;
  const EnvironmentVariable state_home{"XDG_STATE_HOME", state.Path().string()};
  JournalFolderTest() { Hold_Wall_Clock(1000000000); }
  ~JournalFolderTest() override { Hold_Wall_Clock(std::nullopt); }

  std::string Text(const std::string& steps) const {
    return Head_Text({root.Path().string(), 640, 480, 1}) + steps;
  }
  /// The name of a journal in the state folder.
  std::string Name(const FilePath& journal) const {
    return journal.native.lexically_relative(state.Path()).string();
  }
  std::size_t Files() const {
    const std::filesystem::directory_iterator files(state.Path() / "sylvomex/journals");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }
};

TEST_F(JournalFolderTest, RootsHaveJournalsOfTheirOwn) {
  const TemporaryFolder other;
  const FilePath journal = Journal_Of_Root(root.Path());
  EXPECT_EQ(journal.native.parent_path(), state.Path() / "sylvomex/journals");
  EXPECT_TRUE(std::filesystem::is_directory(journal.native.parent_path()));
  EXPECT_NE(Journal_Of_Root(other.Path()).native, journal.native);
  EXPECT_EQ(Journal_Of_Root(root.Path() / "c" / "..").native, journal.native);
}

TEST_F(JournalFolderTest, LiesInTheHomeFolderWithoutAStateFolder) {
  const EnvironmentVariable no_state_home("XDG_STATE_HOME", std::nullopt);
  const EnvironmentVariable home("HOME", state.Path().string());
  const FilePath journal = Journal_Of_Root(root.Path());
  EXPECT_EQ(journal.native.parent_path(), state.Path() / ".local/state/sylvomex/journals");
}

TEST_F(JournalFolderTest, OneThatWasNotEndedIsFound) {
  const FilePath journal = Journal_Of_Root(root.Path());
  EXPECT_FALSE(Find_Unfinished_Journal(journal, root.Path()));
  const auto finds = [&](const std::string& text) {
    state.Write(Name(journal), text);
    return Find_Unfinished_Journal(journal, root.Path()).has_value();
  };
  EXPECT_TRUE(finds(Text("set Text4 5\n")));
  EXPECT_FALSE(finds(Text("history on\nresize Form1 640 480\nend done\nmove Form1 1 1\n")))
      << "nothing was done";
  EXPECT_FALSE(finds(Text("set Text4 5\nend done\nmenu Exit\nbutton ok\nexit\n")));
  EXPECT_FALSE(finds("something else\n"));
}

TEST_F(JournalFolderTest, EndedOnesAreNumberedAndTheLastFiveAreKept) {
  const FilePath journal = Journal_Of_Root(root.Path());
  for (int i = 1; i <= 7; ++i) {
    state.Write(Name(journal), Text("set Text4 " + std::to_string(i) + "\nend done\nexit\n"));
    Put_Journal_Aside(journal);
    EXPECT_FALSE(std::filesystem::exists(journal.native));
  }
  EXPECT_EQ(Files(), 5U);
  EXPECT_NE(state.Read(Name(journal) + ".1").find("Text4 7"), std::string::npos);
  EXPECT_NE(state.Read(Name(journal) + ".5").find("Text4 3"), std::string::npos);
}

TEST_F(JournalFolderTest, OneThatWasNotEndedStaysUnderItsDate) {
  const EnvironmentVariable zone("TZ", "UTC");
  const FilePath journal = Journal_Of_Root(root.Path());
  state.Write(Name(journal), Text("set Text4 5\n"));
  Put_Journal_Aside(journal);
  EXPECT_EQ(state.Read(Name(journal) + ".2001-09-09T01-46-40"), Text("set Text4 5\n"));
}

TEST_F(JournalFolderTest, TwoThatWereNotEndedInOneSecondBothStay) {
  const EnvironmentVariable zone("TZ", "UTC");
  const FilePath journal = Journal_Of_Root(root.Path());
  for (const char* step : {"set Text4 5\n", "set Text4 6\n", "set Text4 7\n"}) {
    state.Write(Name(journal), Text(step));
    Put_Journal_Aside(journal);
  }
  const std::string aside = Name(journal) + ".2001-09-09T01-46-40";
  EXPECT_EQ(state.Read(aside), Text("set Text4 5\n"));
  EXPECT_EQ(state.Read(aside + "-2"), Text("set Text4 6\n"));
  EXPECT_EQ(state.Read(aside + "-3"), Text("set Text4 7\n"));
}

TEST_F(JournalFolderTest, FilesThatItKeptStayWithOneThatWasNotEnded) {
  const EnvironmentVariable zone("TZ", "UTC");
  const FilePath journal = Journal_Of_Root(root.Path());
  const std::string kept = "/0123456789abcdef";
  const auto keep = [&](const std::string& text) {
    state.Write(Name(journal), text);
    state.Write(Name(journal) + ".before" + kept, "former");
    Put_Journal_Aside(journal);
    EXPECT_FALSE(state.Has(Name(journal) + ".before"));
  };
  keep(Text("set Text4 5\n"));
  EXPECT_EQ(state.Read(Name(journal) + ".2001-09-09T01-46-40.before" + kept), "former");
  keep(Text("set Text4 5\nend done\nexit\n"));
  EXPECT_EQ(Files(), 3U);
}

}  // namespace
}  // namespace sylvomex
