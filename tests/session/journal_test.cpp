// SPDX-License-Identifier: MIT
// Journals of whole sessions: what they say, and what a resumed session makes of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "played_journal.h"
#include "session/journal_reads.h"
#include "session/journal_screen.h"
#include "session/script_screen.h"
#include "session/session.h"
#include "support/file_size_limit.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr const char* kPoints = "c/data/Lehtomaa/Pistedata/PointData.txt";
constexpr const char* kState =
    "print Solution3D\nprint SolutionValid\nprint NextMeasurementNumber\nprint Text1(0)\n"
    "print Text1(1)\nprint Text1(2)\nprint Check1(0)\nprint Check1(1)\nprint CurrentImage\n"
    "print ObservationRecord.X\n";

struct JournalTest : testing::Test, PlayedJournal {
  std::string journal = (folder.Path() / "session.journal").string();

  JournalTest() {
    SmallImage image;
    site.Write_Image("a", image);
    image.id = 2;
    image.X0 = 30;
    site.Write_Image("b", image);
    options.width = 640;
    options.height = 480;
  }

  int Play_With_Journal(const std::string& script) {
    options.journal = journal;
    options.resume = "";
    return Play(script);
  }
  int Resume(const std::string& script) {
    options.journal = "";
    options.resume = journal;
    return Play(script);
  }
  int Play_Plain(const std::string& script) {
    options.journal = options.resume = "";
    return Play(script);
  }

  std::string Journal_Text() const { return folder.Read("session.journal"); }
  void Write_Journal(const std::string& text) const { folder.Write("session.journal", text); }

  /// The journal without comments.
  std::string Journal_Steps() const {
    std::istringstream lines(Journal_Text());
    std::string steps;
    for (std::string line; std::getline(lines, line);) {
      if (!line.starts_with('#')) steps += line + "\n";
    }
    return steps;
  }
  std::string Comments(const std::string& name) const {
    std::istringstream lines(Journal_Text());
    std::string found;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("# " + name + " ")) found += line + "\n";
    }
    return found;
  }
  std::string Head() const {
    return "journal 1\nroot " + site.Folder().Path().string() + "\nsize 640 480\nseed 20041105\n";
  }
  std::string Points() const {
    return site.Folder().Has(kPoints) ? site.Folder().Read(kPoints) : "";
  }

  static std::string Two_Images() {
    return "file c:\\data\\a.hdr\nmenu Add_images_to_set\nfile c:\\data\\b.hdr\n"
           "menu Add_images_to_set\n";
  }
  static std::string Set_Point(const std::string& x) {
    return "input " + x + "\ninput 7\ninput 3\nmenu Set_3D_solution\n";
  }
  static std::string Save_Point() {
    return "menu Save_measured_point\npress Form3.Accept_And_Save_Button\n";
  }
};

TEST_F(JournalTest, EventsStandBeforeTheirAnswersAndEnd) {
  ASSERT_EQ(Play_With_Journal(Set_Point("5") + "move Form1 1 2\nmove Form1 3 4\n"
                                               "try menu Open_a_set\n"),
            0)
      << told;
  EXPECT_EQ(Journal_Steps(), Head() +
                                 "menu Set_3D_solution\ninput 5\ninput 7\ninput 3\nend done\n"
                                 "move Form1 1 2\nmove Form1 3 4\nmenu Open_a_set\nend greyed\n");
}

TEST_F(JournalTest, MessageBoxesWithOneButtonAreAnsweredToo) {
  ASSERT_EQ(Play_With_Journal("menu Cast_sun_ray\n"), 0);
  EXPECT_EQ(Journal_Steps(), Head() + "menu Cast_sun_ray\nbutton ok\nend done\n");
}

TEST_F(JournalTest, AnswersStandThereBeforeTheNextDialogOpens) {
  EXPECT_EQ(Play_With_Journal("input 5\nmenu Set_3D_solution\n"), 1);
  EXPECT_EQ(Journal_Steps(), Head() + "menu Set_3D_solution\ninput 5\nend refused\n");
}

TEST_F(JournalTest, ResumedSessionHasTheStateOfItsLastEvent) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Set_Point("5") + "click Picture1(0) 20 30\n" + kState),
            0)
      << told;
  const std::string state = transcript.substr(transcript.find("Solution3D ="));
  ASSERT_EQ(Resume(kState), 0) << told;
  EXPECT_EQ(transcript, state);
  EXPECT_TRUE(told.starts_with("4 events done again from " + journal + "\n")) << told;
}

TEST_F(JournalTest, ResumedSessionGoesOnInTheSameJournal) {
  ASSERT_EQ(Play_With_Journal(Two_Images()), 0);
  ASSERT_EQ(Resume(Set_Point("5")), 0);
  ASSERT_EQ(Resume(Set_Point("6")), 0);
  ASSERT_EQ(Resume("print ImageCount\nprint Solution3D\n"), 0);
  EXPECT_EQ(transcript, "ImageCount = 2\nSolution3D = 6 7 3\n");
  EXPECT_TRUE(told.starts_with("4 events")) << told;
}

TEST_F(JournalTest, SavedLineIsNotAppendedAgain) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Set_Point("5") + Save_Point() + Save_Point()), 0)
      << told;
  const std::string saved = Points();
  ASSERT_EQ(std::ranges::count(saved, '\n'), 2);
  ASSERT_EQ(Resume("print NextMeasurementNumber\n"), 0);
  EXPECT_EQ(transcript, "NextMeasurementNumber = 3\n");
  EXPECT_EQ(Points(), saved);
  ASSERT_EQ(Resume(Save_Point()), 0);
  EXPECT_TRUE(Points().starts_with(saved));
  EXPECT_EQ(std::ranges::count(Points(), '\n'), 3);
}

TEST_F(JournalTest, RepeatedReaderSeesTheLinesOfItsTime) {
  // Every tie point is shown with all those of the file.
  const std::string script = Two_Images() +
                             "menu Measure_Tie_and_CP\ninput 5\nclick Picture1(0) 20 20\n"
                             "input 6\nclick Picture1(0) 40 20\n";
  ASSERT_EQ(Play_With_Journal(script + "marks Picture1(0)\n"), 0) << told;
  const std::string marks = transcript.substr(transcript.find("point"));
  ASSERT_EQ(Resume("marks Picture1(0)\n"), 0) << told;
  EXPECT_EQ(transcript, marks);
}

// The ground polygon is read and drawn, then another one is begun and drawn.
std::string Two_Ground_Polygons() {
  return JournalTest::Two_Images() + JournalTest::Set_Point("5") +
         "menu Draw_XYZ_Polygon\nmenu Draw_Polygon\nclick Picture1(0) 20 20 right\n"
         "click Picture1(0) 40 20\nclick Picture1(0) 40 45\nmenu Draw_XYZ_Polygon\n"
         "menu Draw_XYZ_Polygon\n";
}

TEST_F(JournalTest, RepeatedReaderSeesAFileAsItWasBeforeItWasWrittenOver) {
  constexpr const char* kGround = "c/data/XY_polyline.txt";
  site.Folder().Write(kGround, "0,0,3\n3,1,3\n5,9,3\n7,2,3\n1,8,3\n");
  ASSERT_EQ(Play_With_Journal(Two_Ground_Polygons() + "say marks\nmarks Picture1(0)\n"), 0) << told;
  const std::string marks = transcript.substr(transcript.find("say marks"));
  const std::string ground = site.Folder().Read(kGround);
  EXPECT_EQ(std::ranges::count(ground, '\n'), 3);
  for (int again = 0; again < 2; ++again) {
    ASSERT_EQ(Resume("say marks\nmarks Picture1(0)\n"), 0) << told;
    EXPECT_EQ(transcript, marks);
    EXPECT_EQ(site.Folder().Read(kGround), ground);
    EXPECT_EQ(std::ranges::count(told, '\n'), 1) << told;
  }
}

TEST_F(JournalTest, RepeatedReaderDoesNotSeeAFileThatWasMadeLater) {
  ASSERT_EQ(Play_With_Journal(Two_Ground_Polygons() + "say marks\nmarks Picture1(0)\n"), 0) << told;
  const std::string marks = transcript.substr(transcript.find("say marks"));
  ASSERT_EQ(Resume("say marks\nmarks Picture1(0)\n"), 0) << told;
  EXPECT_EQ(transcript, marks);
}

TEST_F(JournalTest, FileThatIsTooLargeToKeepIsReadAsItIs) {
  site.Folder().Write("c/data/XY_polyline.txt",
                      "0,0,3\n3,1,3\n" + std::string(JournalReads::kLargestKept, ' '));
  ASSERT_EQ(Play_With_Journal(Two_Ground_Polygons()), 0) << told;
  EXPECT_FALSE(folder.Has("session.journal.before"));
  ASSERT_EQ(Resume(""), 0) << told;
}

TEST_F(JournalTest, NewJournalDropsTheFilesThatTheFormerOneKept) {
  site.Folder().Write("c/data/XY_polyline.txt", "0,0,3\n3,1,3\n");
  ASSERT_EQ(Play_With_Journal(Two_Ground_Polygons()), 0) << told;
  EXPECT_TRUE(folder.Has("session.journal.before"));
  Write_Journal("");
  ASSERT_EQ(Play_With_Journal(Set_Point("5")), 0) << told;
  EXPECT_FALSE(folder.Has("session.journal.before"));
}

TEST_F(JournalTest, AppendIsAnnouncedBeforeAndConfirmedAfter) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Save_Point()), 0) << told;
  const std::string path = (site.Folder().Path() / kPoints).string();
  EXPECT_TRUE(Comments("append").starts_with("# append 1 " + path + " 0 " +
                                             std::to_string(Points().size()) + " "))
      << Comments("append");
  EXPECT_EQ(Comments("appended"), "# appended 1\n");
}

/// The journal of a save that was killed before its line was confirmed.
struct KilledSave : JournalTest {
  std::string line;

  KilledSave() {
    EXPECT_EQ(Play_With_Journal(Two_Images() + Set_Point("5") + Save_Point()), 0) << told;
    line = Points();
    const std::string text = Journal_Text();
    const std::size_t append = text.find("# append 1");
    Write_Journal(text.substr(0, text.find('\n', append) + 1));
  }
  void Resume_And_Expect(const std::string& points) {
    EXPECT_EQ(Resume("print NextMeasurementNumber\n"), 0) << told;
    EXPECT_EQ(transcript, "NextMeasurementNumber = 2\n");
    EXPECT_EQ(Points(), points);
    EXPECT_EQ(Resume("print NextMeasurementNumber\n"), 0) << told;
    EXPECT_EQ(transcript, "NextMeasurementNumber = 2\n");
    EXPECT_EQ(Points(), points);
  }
};

TEST_F(KilledSave, LineThatIsThereIsKeptOnce) { Resume_And_Expect(line); }

TEST_F(KilledSave, LineThatIsMissingIsWritten) {
  site.Folder().Write(kPoints, "");
  Resume_And_Expect(line);
}

TEST_F(KilledSave, TornLineIsCompleted) {
  site.Folder().Write(kPoints, line.substr(0, line.size() / 2));
  Resume_And_Expect(line);
}

TEST_F(KilledSave, LinesOfAnotherProgramStay) {
  site.Folder().Write(kPoints, "another program's line\n");
  Resume_And_Expect("another program's line\n" + line);
}

TEST_F(KilledSave, LineBeforeLinesOfAnotherProgramIsKeptOnce) {
  site.Folder().Write(kPoints, line + "another program's line\n");
  Resume_And_Expect(line + "another program's line\n");
}

TEST_F(JournalTest, SaveKilledBeforeItsLineWasAnnouncedIsDoneOnce) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Save_Point()), 0) << told;
  const std::string text = Journal_Text(), line = Points();
  Write_Journal(text.substr(0, text.find("# append 1")));
  site.Folder().Write(kPoints, "");
  ASSERT_EQ(Resume(""), 0);
  EXPECT_EQ(Points(), line);
  EXPECT_NE(told.find("the last one had not ended"), std::string::npos) << told;
  ASSERT_EQ(Resume(""), 0);
  EXPECT_EQ(Points(), line);
  EXPECT_EQ(told.find("had not ended"), std::string::npos) << told;
}

TEST_F(JournalTest, FileThatASaveMadeBeforeItWasKilledIsStillMissingForEarlierEvents) {
  constexpr const char* kListing = "c/apu/quvex.txt";
  site.Folder().Make_Folder("c/apu");
  site.Folder().Write("c/data/JetColorMAP.csv", "0,0,0\n255,255,255\n");
  ASSERT_EQ(Play_With_Journal(Two_Images() + "try menu Plot_Point_Set\n" + Save_Point()), 0)
      << told;
  ASSERT_FALSE(site.Folder().Has(kListing));  // there were no points to plot
  const std::string text = Journal_Text(), line = Points();
  Write_Journal(text.substr(0, text.find("# append 1")));
  site.Folder().Write(kPoints, "");
  ASSERT_EQ(Resume(""), 0) << told;
  EXPECT_FALSE(site.Folder().Has(kListing));
  EXPECT_EQ(Points(), line);
  ASSERT_EQ(Resume("menu Plot_Point_Set\n"), 0) << told;
  EXPECT_TRUE(site.Folder().Has(kListing));
}

TEST_F(JournalTest, FileThatWasEmptyBeforeTheSessionIsThereForItsEarlierEvents) {
  site.Folder().Make_Folder("c/apu");
  site.Folder().Write("c/data/JetColorMAP.csv", "0,0,0\n255,255,255\n");
  site.Folder().Write(kPoints, "");
  ASSERT_EQ(Play_With_Journal(Two_Images() + "menu Plot_Point_Set\n" + Save_Point()), 0) << told;
  EXPECT_EQ(Comments("creates"), "");
  ASSERT_EQ(Resume(""), 0) << told;
  EXPECT_EQ(site.Folder().Read("c/apu/quvex.txt"), "");
}

TEST_F(JournalTest, FileIsToldToBeMadeOnceAndBeforeItsFirstLine) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Save_Point() + Save_Point()), 0) << told;
  EXPECT_EQ(Comments("creates"), "# creates " + site.Folder().File(kPoints).native.string() + "\n");
  const std::string text = Journal_Text();
  EXPECT_LT(text.find("# creates "), text.find("# append 1 "));
  ASSERT_EQ(Resume(""), 0) << told;
  EXPECT_EQ(Journal_Text(), text);
}

TEST_F(JournalTest, ConfirmedLineThatTheOperatorRemovedStaysRemoved) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Save_Point() + Save_Point()), 0) << told;
  site.Folder().Write(kPoints, "cleaned by hand\n");
  ASSERT_EQ(Resume("print NextMeasurementNumber\n"), 0);
  EXPECT_EQ(transcript, "NextMeasurementNumber = 3\n");
  EXPECT_EQ(Points(), "cleaned by hand\n");
  EXPECT_NE(told.find("no longer stands there"), std::string::npos) << told;
}

TEST_F(JournalTest, SaveThatFailedThenFailsAgain) {
  ASSERT_EQ(Play_With_Journal(Two_Images() + Save_Point()), 0) << told;
  std::string text = Journal_Text();
  text.replace(text.find("# appended 1"), 12, "# not-appended 1");
  Write_Journal(text);
  site.Folder().Write(kPoints, "");
  ASSERT_EQ(Resume("print NextMeasurementNumber\n"), 0);
  EXPECT_EQ(transcript, "NextMeasurementNumber = 1\n");
  EXPECT_EQ(Points(), "");
}

TEST_F(JournalTest, DialogWithoutAnswerIsDismissed) {
  Write_Journal(Head() + "menu Set_3D_solution\ninput 5\n");
  ASSERT_EQ(Resume(Set_Point("9") + "print Solution3D\n"), 0) << told;
  EXPECT_NE(told.find("the last one had not ended"), std::string::npos) << told;
  EXPECT_TRUE(transcript.ends_with("Solution3D = 9 7 3\n"));
  EXPECT_TRUE(Journal_Steps().starts_with(Head() + "menu Set_3D_solution\ninput 5\ncancel\n"))
      << Journal_Steps();
}

TEST_F(JournalTest, EventsInsideACommandHappenAtTheirServicing) {
  // Form_KeyDown services events once, at its end.
  ASSERT_EQ(Play_With_Journal(Set_Point("5") + "during 1 set Text4 99\nkey U\n"), 0) << told;
  EXPECT_NE(Journal_Steps().find("key U\nduring 1 set Text4 99\nend done\n"), std::string::npos)
      << Journal_Steps();
  ASSERT_EQ(Resume("print Text4\nprint Solution3D\n"), 0);
  EXPECT_EQ(transcript, "Text4 = 99\nSolution3D = 5 7 4\n");
}

TEST_F(JournalTest, CancelledCommandIsCancelledAtTheSamePlaceAgain) {
  site.Folder().Make_Folder("d");
  site.Folder().Write("c/data/circles.txt", "-20,0,0,7,8\n20,0,0,9,8\n");
  const std::string mask = "d/2_Zonal.raw";
  const std::string cancelled = "file c:\\data\\circles.txt\ncancelled 50 command Create_Zonal\n";
  ASSERT_EQ(Play_With_Journal("history on\n" + Two_Images() + cancelled + kState), 0) << told;
  EXPECT_NE(Journal_Steps().find("\nend cancelled 50\n"), std::string::npos) << Journal_Steps();
  EXPECT_FALSE(site.Folder().Has(mask));
  const std::string state = transcript.substr(transcript.find("Solution3D ="));
  ASSERT_EQ(Resume(kState), 0) << told;
  EXPECT_EQ(transcript, state);
  EXPECT_FALSE(site.Folder().Has(mask));
  EXPECT_EQ(told.find("was not asked for"), std::string::npos) << told;
}

TEST_F(JournalTest, CancelledCommandAsksForAllThatWasAnsweredBefore) {
  std::string nodes;
  for (int k = 0; k < 5000; ++k)
    nodes += std::to_string(k % 100) + "," + std::to_string(k) + ",5\n";
  site.Folder().Write("c/data/long.nod", nodes);
  site.Folder().Write("c/data/long.tri", "0,1,100\n");
  Write_Journal(Head() +
                "menu Add_Tin\nfile c:\\data\\long.nod\nfile c:\\data\\long.tri\n"
                "end cancelled 0\n");
  ASSERT_EQ(Resume("print TinDem.TriangleCount\n"), 0) << told;
  EXPECT_EQ(transcript, "TinDem.TriangleCount = 0\n");
  EXPECT_EQ(told.find("was not asked for"), std::string::npos) << told;
}

TEST_F(JournalTest, EventsInsideADialogHappenThere) {
  Write_Journal(Head() +
                "menu Set_3D_solution\ninput 5\nwithin set Text4 99\ninput 7\ninput 3\n"
                "end done\n");
  ASSERT_EQ(Resume("print Text4\nprint Solution3D\n"), 0);
  EXPECT_EQ(transcript, "Text4 = 99\nSolution3D = 5 7 3\n");
  EXPECT_EQ(told, "1 event done again from " + journal + "\n");
}

TEST_F(JournalTest, ExitClosesIt) {
  ASSERT_EQ(Play_With_Journal("button ok\nmenu Exit\n"), 0);
  EXPECT_TRUE(Journal_Text().ends_with("menu Exit\nbutton ok\nexit\n")) << Journal_Text();
  EXPECT_EQ(Resume(""), 1);
  EXPECT_NE(told.find("ended by Exit"), std::string::npos) << told;
  EXPECT_EQ(Play_With_Journal(""), 0) << "a journal that was ended gives way to a new one";
}

TEST_F(JournalTest, SessionKilledInItsExitGoesOn) {
  Write_Journal(Head() + "set Text4 98\nend done\nmenu Exit\nbutton ok\n");
  for (const char* text : {"97", "96"}) {
    ASSERT_EQ(Resume(std::string("set Text5 ") + text + "\nprint Text4\nprint Text5\n"), 0) << told;
    EXPECT_EQ(transcript, std::string("Text4 = 98\nText5 = ") + text + "\n");
  }
  ASSERT_EQ(Resume("print Text5\n"), 0);
  EXPECT_EQ(transcript, "Text5 = 96\n");
}

TEST_F(JournalTest, JournalThatWasNotEndedIsNotWrittenOver) {
  ASSERT_EQ(Play_With_Journal(Set_Point("5")), 0);
  const std::string text = Journal_Text();
  EXPECT_EQ(Play_With_Journal(""), 1);
  EXPECT_NE(told.find("--resume"), std::string::npos) << told;
  EXPECT_EQ(Journal_Text(), text);
}

TEST_F(JournalTest, TornLastLineIsLeftOutAndTold) {
  Write_Journal(Head() + "set Text4 98\nend done\nset Text4 9");
  ASSERT_EQ(Resume("print Text4\n"), 0);
  EXPECT_EQ(transcript, "Text4 = 98\n");
  EXPECT_NE(told.find("torn"), std::string::npos) << told;
  EXPECT_EQ(Journal_Steps(), Head() + "set Text4 98\nend done\n");
}

TEST_F(JournalTest, DamagedLinesArePassedOverAndTold) {
  Write_Journal(Head() + "set Text4 98\nend done\nbogus line\nset Text5 \"open\n" +
                std::string(5, '\0') + "\nset Text6 4\nend done\n");
  ASSERT_EQ(Resume("print Text4\nprint Text6\n"), 0);
  EXPECT_EQ(transcript, "Text4 = 98\nText6 = 4\n");
  for (const char* line : {"line 7 ", "line 8 ", "line 9 "}) {
    EXPECT_NE(told.find(line), std::string::npos) << told;
  }
}

TEST_F(JournalTest, FileThatIsNoJournalIsRefused) {
  for (const std::string text : {"", "journal 2\n", "say hello\n", "journal 1\nroot x\n"}) {
    Write_Journal(text);
    EXPECT_EQ(Resume(""), 1);
    EXPECT_NE(told.find("no journal"), std::string::npos) << told;
    EXPECT_EQ(Journal_Text(), text);
  }
}

TEST_F(JournalTest, JournalOfAnotherRootIsRefused) {
  ASSERT_EQ(Play_With_Journal(""), 0);
  const SmallSite other;
  options.root = other.Folder().Path();
  EXPECT_EQ(Resume(""), 1);
  EXPECT_NE(told.find("it is a journal of " + site.Folder().Path().string()), std::string::npos);
}

TEST_F(JournalTest, FilesThatChangedSinceAreListed) {
  ASSERT_EQ(Play_With_Journal(Two_Images()), 0);
  ASSERT_EQ(Resume(""), 0);
  EXPECT_EQ(told, "2 events done again from " + journal + "\n");
  SmallImage image;
  image.Z0 = 1001;
  site.Write_Image("a", image);
  ASSERT_EQ(Resume(""), 0);
  EXPECT_NE(told.find("since then: " + (site.Folder().Path() / "c/data/a.hdr").string() + " "),
            std::string::npos)
      << told;
  EXPECT_EQ(told.find("b.hdr"), std::string::npos) << told;
}

TEST_F(JournalTest, RandomNumbersAreThoseOfASessionWithoutJournal) {
  std::ostringstream out;
  ScriptScreen plain(out, out), inner(out, out);
  JournalFile file(folder.File("session.journal"), 0, 0);
  Journal written(file);
  JournalScreen with_journal(inner, written, kRandomSeed);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(with_journal.Random(), plain.Random());
}

TEST_F(JournalTest, ScriptWithJournalPlaysAsWithout) {
  const std::string script = Two_Images() + Set_Point("5") + "click Picture1(0) 20 30\n" +
                             Save_Point() + "marks Picture1(0)\n" + kState;
  ASSERT_EQ(Play_Plain(script), 0);
  const std::string plain = transcript, points = Points();
  site.Folder().Write(kPoints, "");
  ASSERT_EQ(Play_With_Journal(script), 0);
  EXPECT_EQ(transcript, plain);
  EXPECT_EQ(Points(), points);
}

TEST_F(JournalTest, PlaysAsAScript) {
  const std::string script = Two_Images() + Set_Point("5") + Save_Point() + "menu Cast_sun_ray\n";
  ASSERT_EQ(Play_With_Journal(script), 0);
  const std::string wanted = transcript, points = Points();
  const std::string text = Journal_Text();
  site.Folder().Write(kPoints, "");
  options.width = 100;
  EXPECT_EQ(Play_Plain(text), 0) << told;
  EXPECT_EQ(transcript, wanted);
  EXPECT_EQ(Points(), points);
}

TEST_F(JournalTest, FullDiskFailsTheSessionAndKeepsTheWholeLines) {
  std::string script;
  for (int i = 0; i < 200; ++i) script += Set_Point(std::to_string(i));
  int status = 0;
  {
    const FileSizeLimit full(2000);
    status = Play_With_Journal(script + "print Solution3D\n");
  }
  EXPECT_EQ(status, 4);
  EXPECT_NE(transcript.find("Solution3D = 199 7 3\n"), std::string::npos);
  EXPECT_NE(told.find("the journal ends early"), std::string::npos) << told;
  ASSERT_EQ(Resume("print Solution3D\n"), 0);
  EXPECT_NE(transcript.find("Solution3D = "), std::string::npos);
}

TEST_F(JournalTest, RecordingOfAResumedSessionIsWhole) {
  ASSERT_EQ(Play_With_Journal(Set_Point("5")), 0);
  options.record = (folder.Path() / "record.txt").string();
  ASSERT_EQ(Resume("set Text4 9\n"), 0);
  EXPECT_EQ(folder.Read("record.txt"),
            "resize Form1 640 480\ninput 5\ninput 7\ninput 3\nmenu Set_3D_solution\nset Text4 9\n");
}

}  // namespace
}  // namespace sylvomex
