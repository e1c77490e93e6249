// SPDX-License-Identifier: MIT
// Undone saves and lines taken back in a session that is resumed.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "platform/write_witness.h"
#include "played_journal.h"
#include "session/session.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr const char* kPoints = "c/data/Lehtomaa/Pistedata/PointData.txt";

struct JournalUndoTest : testing::Test, PlayedJournal {
  /// Plays with a new journal, or goes on in it.
  int Play(const std::string& script, bool resumes) {
    options.journal = options.resume = "";
    (resumes ? options.resume : options.journal) = (folder.Path() / "journal").string();
    return PlayedJournal::Play(script);
  }
  static std::string Save(const std::string& comment) {
    return "menu Save_measured_point\nset Form3.Text4 \"" + comment +
           "\"\npress Form3.Accept_And_Save_Button\n";
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

/// Sessions that read lines which are gone later, compared with those that go on unkilled.
struct JournalReadingTest : JournalUndoTest {
  static constexpr const char* kListing = "c/apu/quvex.txt";
  static constexpr const char* kTies = "c/data/imageobs.txt";

  JournalReadingTest() { Fill(site); }

  static void Fill(const SmallSite& filled) {
    SmallImage image;
    filled.Write_Image("a", image);
    image.id = 2;
    image.X0 = 30;
    filled.Write_Image("b", image);
    filled.Folder().Make_Folder("c/apu");
    filled.Folder().Write("c/data/JetColorMAP.csv", "0,0,0\n255,255,255\n");
  }
  static std::string Begin() {
    return "history on\nfile c:\\data\\a.hdr\nmenu Add_images_to_set\n"
           "file c:\\data\\b.hdr\nmenu Add_images_to_set\n";
  }
  static std::string Points_Of_Another_Session() {
    const SmallSite other;
    Fill(other);
    SessionOptions options;
    options.script = "-";
    options.root = other.Folder().Path();
    std::istringstream in(Save_Point("8") + Save_Point("9"));
    std::ostringstream out, err;
    EXPECT_EQ(Run_Session(options, {in, out, err}), 0) << err.str();
    return other.Folder().Read(kPoints);
  }
  static std::string Save_Point(const std::string& x) {
    return "input " + x + "\ninput 7\ninput 3\nmenu Set_3D_solution\n" + Save("point " + x);
  }
  static std::string Tie_Point(const std::string& id, const std::string& px) {
    return "input " + id + "\nclick Picture1(0) " + px + " 20\n";
  }
  static std::string State() {
    return "say state\nmarks Picture1(0)\nmarks Picture1(1)\nprint NextMeasurementNumber\n";
  }

  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const char* name : {kPoints, kListing, kTies}) {
      if (site.Folder().Has(name)) files[name] = site.Folder().Read(name);
    }
    return files;
  }
  /// Plays `before` to its end or to a kill and `after` behind it; both ways must come to the same.
  void Expect_Alike(const std::string& before, const std::string& after) {
    ASSERT_EQ(Play(Begin() + before + after + State(), false), 0) << told;
    const std::string wanted = transcript.substr(transcript.find("say state"));
    const auto files = Files();
    ASSERT_NE(wanted.find("point"), std::string::npos) << "the test shows nothing";
    for (const auto& [name, content] : files) std::filesystem::remove(site.Folder().Path() / name);
    std::filesystem::remove(site.Folder().Path() / (std::string(kPoints) + ".taken"));
    std::filesystem::remove(folder.Path() / "journal");
    ASSERT_EQ(Play(Begin() + before, false), 0) << told;
    for (int again = 0; again < 2; ++again) {
      ASSERT_EQ(Play(again == 0 ? after + State() : State(), true), 0) << told;
      EXPECT_EQ(transcript.substr(transcript.find("say state")), wanted) << told;
      EXPECT_TRUE(Files() == files) << site.Folder().Read(kListing);
      EXPECT_EQ(std::ranges::count(told, '\n'), 1) << told;
    }
  }
};

TEST_F(JournalReadingTest, PointsThatWerePlottedBeforeTheyWereTakenBackAreShownAgain) {
  Expect_Alike(Save_Point("5") + Save_Point("6") + "menu Plot_Point_Set\ntakeback\n", "");
  EXPECT_EQ(std::ranges::count(site.Folder().Read(kListing), '\n'), 2);
}

TEST_F(JournalReadingTest, PointsThatWerePlottedBeforeTheirSaveWasUndoneAreListedAgain) {
  Expect_Alike(Save_Point("5") + "menu Plot_Point_Set\nundo\nundo\n", "redo\nredo\n");
  EXPECT_EQ(std::ranges::count(site.Folder().Read(kListing), '\n'), 1);
}

TEST_F(JournalReadingTest, TiePointsThatWereUndoneCanBeDoneAgain) {
  Expect_Alike("menu Measure_Tie_and_CP\n" + Tie_Point("5", "20") + Tie_Point("6", "40") + "undo\n",
               "redo\n");
}

TEST_F(JournalReadingTest, ReaderSeesTheLinesThatStoodThereBeforeTheSession) {
  const std::string former = Points_Of_Another_Session();
  site.Folder().Write(kPoints, former);
  ASSERT_EQ(Play(Begin() + Save_Point("5") + "menu Plot_Point_Set\ntakeback\n" + State(), false), 0)
      << told;
  const std::string wanted = transcript.substr(transcript.find("say state"));
  ASSERT_EQ(Play(State(), true), 0) << told;
  EXPECT_EQ(transcript, wanted);
  EXPECT_EQ(std::ranges::count(site.Folder().Read(kListing), '\n'), 3);
  EXPECT_EQ(Points(), former);
}

TEST_F(JournalReadingTest, FileThatWasMissingIsMissingAgain) {
  const std::string tries = "try menu Plot_Point_Set\n" + Save_Point("5") + "menu Plot_Point_Set\n";
  ASSERT_EQ(Play(Begin() + tries + "takeback\n" + State(), false), 0) << told;
  ASSERT_NE(transcript.find("error Plot_Point_Set \"File not found"), std::string::npos);
  const std::string wanted = transcript.substr(transcript.find("say state"));
  const std::string text = Journal();
  ASSERT_EQ(Play(State(), true), 0) << told;
  EXPECT_EQ(transcript, wanted);
  // Only the error of the first one is in the journal.
  EXPECT_EQ(Journal().find("# writes", text.size()), std::string::npos) << Journal();
}

/// Ends the process at the moment when a copy of the lines that are taken back is on the disk.
class KillBehindCopy : public WriteWitness {
 public:
  void Will_Change(const FilePath&, bool) override {}
  void Has_Appended(const FilePath& file, std::string_view) override {
    if (file.name.ends_with(".taken")) raise(SIGKILL);
  }
};

TEST_F(JournalUndoTest, TakingThatWasKilledBetweenCopyAndCutIsDoneOnce) {
  const std::string script = "history on\n" + Save("one") + Save("two");
  const pid_t child = fork();
  if (child == 0) {
    const KillBehindCopy kill;
    Play(script + "takeback\n", false);
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
  const std::string both = Points();
  ASSERT_EQ(std::ranges::count(both, '\n'), 2);
  const std::string one = both.substr(0, both.find('\n') + 1), two = both.substr(one.size());
  const std::string taken = site.Folder().Read(std::string(kPoints) + ".taken");
  ASSERT_TRUE(taken.ends_with("\n" + two)) << taken;

  ASSERT_EQ(Play("", true), 0) << told;
  EXPECT_EQ(Points(), one);
  EXPECT_EQ(site.Folder().Read(std::string(kPoints) + ".taken"), taken);
  Expect_Steady(one, "2");
}

}  // namespace
}  // namespace sylvomex
