// SPDX-License-Identifier: MIT
// Undone saves and lines taken back in a session that is resumed.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "session/session.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr const char* kPoints = "c/data/Lehtomaa/Pistedata/PointData.txt";

struct JournalUndoTest : testing::Test {
  SmallSite site;
  TemporaryFolder folder;
  std::string told, transcript;

  /// Plays with a new journal, or goes on in it.
  int Play(const std::string& script, bool resumes) {
    SessionOptions options;
    options.script = "-";
    options.root = site.Folder().Path();
    (resumes ? options.resume : options.journal) = (folder.Path() / "journal").string();
    std::istringstream in(script);
    std::ostringstream out, err;
    const int status = Run_Session(options, {in, out, err});
    transcript = out.str();
    told = err.str();
    return status;
  }
  static std::string Save(const std::string& comment) {
    return "menu Save_measured_point\nset Form3.Text4 " + comment +
           "\npress Form3.Accept_And_Save_Button\n";
  }
  std::string Points() const { return site.Folder().Read(kPoints); }
  std::string Journal() const { return folder.Read("journal"); }

  /// Goes on twice; the files and the number must stay.
  void Expect_Steady(const std::string& points, const std::string& number) {
    for (int i = 0; i < 2; ++i) {
      ASSERT_EQ(Play("print NextMeasurementNumber\n", true), 0) << told;
      EXPECT_EQ(transcript, "NextMeasurementNumber = " + number + "\n") << told;
      EXPECT_EQ(Points(), points);
      EXPECT_EQ(told.find('\n'), told.size() - 1) << told;
    }
  }
};

TEST_F(JournalUndoTest, LineThatWasTakenBackStaysTakenBack) {
  ASSERT_EQ(Play("history on\n" + Save("one") + Save("two") + "takeback\n", false), 0) << told;
  const std::string one = Points();
  ASSERT_EQ(std::ranges::count(one, '\n'), 1);
  Expect_Steady(one, "2");
}

TEST_F(JournalUndoTest, LineSavedAfterOneWasTakenBackStays) {
  ASSERT_EQ(Play("history on\n" + Save("one") + Save("two") + "takeback\n" + Save("three"), false),
            0)
      << told;
  const std::string both = Points();
  ASSERT_NE(both.find("three"), std::string::npos);
  ASSERT_EQ(both.find("two"), std::string::npos);
  Expect_Steady(both, "3");
}

TEST_F(JournalUndoTest, UndoneAndRedoneSaveStandsOnce) {
  ASSERT_EQ(Play("history on\n" + Save("one") + "undo\nredo\n", false), 0) << told;
  const std::string one = Points();
  ASSERT_EQ(std::ranges::count(one, '\n'), 1);
  Expect_Steady(one, "2");
}

TEST_F(JournalUndoTest, TakingThatWasKilledBeforeItsFileChangedIsDone) {
  ASSERT_EQ(Play("history on\n" + Save("one") + Save("two"), false), 0);
  const std::string both = Points();
  ASSERT_EQ(Play("takeback\n", true), 0) << told;
  const std::string one = Points();
  const std::string text = Journal();
  const std::size_t take = text.find("# take ");
  folder.Write("journal", text.substr(0, text.find('\n', take) + 1));
  site.Folder().Write(kPoints, both);
  site.Folder().Write(std::string(kPoints) + ".taken", "");
  ASSERT_EQ(Play("", true), 0);
  EXPECT_EQ(Points(), one);
  Expect_Steady(one, "2");
}

}  // namespace
}  // namespace sylvomex
