// SPDX-License-Identifier: MIT
// Whole sessions over a small site: transcripts byte for byte, and exit statuses.
#include "session/session.h"

#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <streambuf>

#include "platform/root_lock.h"
#include "support/environment_variable.h"
#include "support/file_size_limit.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

struct SessionTest : testing::Test {
  SmallSite site;
  SessionOptions options;
  SessionHooks hooks;
  std::string transcript, told;

  SessionTest() {
    options.script = "-";
    options.root = site.Folder().Path();
  }

  int Play(const std::string& script) {
    std::istringstream in(script);
    std::ostringstream out, err;
    const int status = Run_Session(options, {in, out, err}, hooks);
    transcript = out.str();
    told = err.str();
    return status;
  }
};

TEST_F(SessionTest, EmptyScriptIsDone) {
  EXPECT_EQ(Play("# nothing to do\n\n"), 0);
  EXPECT_EQ(transcript, "");
}

TEST_F(SessionTest, PausesAfterEveryStep) {
  int shown = 0, pauses = 0;
  hooks.show = [&](Workspace&) { ++shown; };
  hooks.pause = [&] {
    ++pauses;
    EXPECT_GE(shown, pauses);
  };
  EXPECT_EQ(Play("say one\n\nsay two\nprint Label10\n"), 0);
  EXPECT_EQ(pauses, 3);
}

TEST_F(SessionTest, MemoryThatIsNotThereAtTheStartIsAFailedStart) {
  hooks.before_start = [](Workspace&) { throw std::bad_alloc(); };
  EXPECT_EQ(Play("say one\n"), 3);
  EXPECT_EQ(told, "the start-up failed: Out of memory\n");
}

TEST_F(SessionTest, WhatEndsItInTheMiddleIsToldBehindItsTranscript) {
  hooks.pause = [] { throw std::bad_alloc(); };
  EXPECT_EQ(Play("say one\nsay two\n"), 2);
  EXPECT_EQ(transcript, "say one\n");
  EXPECT_EQ(told, "the session ends: Out of memory\n");
}

TEST_F(SessionTest, ASecondOneWithoutAPlaceForItsPicturesIsAFailedStart) {
  const RootLock first(options.root);
  const EnvironmentVariable temporary("TMPDIR", "/proc");  // takes no new folder
  EXPECT_EQ(Play("say one\n"), 3);
  EXPECT_TRUE(told.starts_with("the start-up failed: ")) << told;
  EXPECT_NE(told.find("/proc/sylvomex_guest_"), std::string::npos) << told;
}

TEST_F(SessionTest, ARelativeRootInARemovedWorkingFolderIsNoRootOfAJournal) {
  const std::filesystem::path former = std::filesystem::current_path();
  const TemporaryFolder folder;
  std::filesystem::current_path(folder.Make_Folder("gone"));
  std::filesystem::remove(folder.Path() / "gone");
  options.root = "site";
  options.journal = (folder.Path() / "journal").string();
  EXPECT_EQ(Play("say one\n"), 1);
  std::filesystem::current_path(former);
  EXPECT_EQ(told, "File error: site, No such file or directory\n");
}

TEST_F(SessionTest, StartsWithTheDefaults) {
  EXPECT_EQ(Play("print Label10\nprint Text4\nprint StepLength\nprint Solution3D\n"
                 "print Draw_Polygon\nprint CurrentImage\nprint Form1.Visible\n"),
            0);
  EXPECT_EQ(transcript,
            "Label10 = Program status\nText4 = 23\nStepLength = 1\nSolution3D = 0 0 0\n"
            "Draw_Polygon = 0\nCurrentImage = -1\nForm1.Visible = -1\n");
}

TEST_F(SessionTest, MessageOfACommandIsALine) {
  EXPECT_EQ(Play("menu Cast_sun_ray\n"), 0);
  EXPECT_EQ(transcript, "message \"Solution lacking!\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(SessionTest, ExitAnsweredWithOkEndsTheSessionThere) {
  EXPECT_EQ(Play("button ok\nmenu Exit\nsay never\nbogus\n"), 0);
  EXPECT_EQ(transcript,
            "message \"Do you wish to exit?\" title=\"3D-measurements\" buttons=ok,cancel -> "
            "ok\n");
}

TEST_F(SessionTest, ExitCancelledGoesOn) {
  EXPECT_EQ(Play("button cancel\nmenu Exit\nsay on\n"), 0);
  EXPECT_EQ(transcript,
            "message \"Do you wish to exit?\" title=\"3D-measurements\" buttons=ok,cancel -> "
            "cancel\nsay on\n");
}

TEST_F(SessionTest, GreyedItemFailsUnlessRunAsACommand) {
  EXPECT_EQ(Play("say a\nmenu Open_a_set\nsay never\n"), 1);
  EXPECT_EQ(transcript, "say a\ngreyed Open_a_set\n");
  EXPECT_EQ(Play("command Open_a_set\n"), 0);
  EXPECT_EQ(transcript,
            "message \"This functionality is disabled!\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(SessionTest, SyntaxErrorIsReportedWithItsLineAfterTheStepsBefore) {
  EXPECT_EQ(Play("say a\n\nsay \"open\n"), 1);
  EXPECT_EQ(transcript, "say a\n");
  EXPECT_EQ(told, "standard input:3: a quoted text has no closing quote\n");
}

TEST_F(SessionTest, UnknownStepAndUnknownNamesFail) {
  EXPECT_EQ(Play("frobnicate\n"), 1);
  EXPECT_EQ(told, "standard input:1: there is no step \"frobnicate\"\n");
  EXPECT_EQ(Play("menu Nothing\n"), 1);
  EXPECT_EQ(Play("print Nothing\n"), 1);
  EXPECT_EQ(Play("set Label10 x\n"), 1);
  EXPECT_EQ(Play("press Nothing\n"), 1);
  EXPECT_EQ(Play("move Form99 1 2\n"), 1);
}

TEST_F(SessionTest, DialogWithoutItsAnswerFails) {
  EXPECT_EQ(Play("menu Center_To_Q\nsay never\n"), 1);
  EXPECT_EQ(transcript, "");
  EXPECT_EQ(Play("file a\nmenu Center_To_Q\n"), 1);
}

TEST_F(SessionTest, UnusedAnswersFail) {
  EXPECT_EQ(Play("input 1\nsay end\n"), 1);
  EXPECT_EQ(transcript, "say end\n");
  EXPECT_EQ(told, "standard input:2: 1 queued answers were not used\n");
}

TEST_F(SessionTest, FailedExpectationFails) {
  EXPECT_EQ(Play("expect Text5 1.5\nexpect Text5 1.6\nsay never\n"), 1);
  EXPECT_EQ(told, "standard input:2: Text5 is \"1.5\", expected was \"1.6\"\n");
}

TEST_F(SessionTest, CommandErrorEndsTheSessionWithTwo) {
  EXPECT_EQ(Play("file c:\\data\\none.hdr\ntry menu Add_images_to_set\nsay on\n"), 0);
  const std::string tried = transcript;
  EXPECT_TRUE(tried.ends_with("say on\n"));
  EXPECT_EQ(Play("call Object_To_Pixel -1 0 0 0\nsay never\n"), 2);
  EXPECT_TRUE(transcript.starts_with("error Object_To_Pixel \"")) << transcript;
}

TEST_F(SessionTest, StartWithoutTheDataFolderFails) {
  options.root = site.Folder().Path() / "nothing";
  EXPECT_EQ(Play("say never\n"), 3);
  EXPECT_EQ(transcript, "");
  EXPECT_TRUE(told.starts_with("the start-up failed: ")) << told;
  EXPECT_NE(told.find("--root"), std::string::npos) << told;
}

TEST_F(SessionTest, ScriptFileLiesOnADriveOrIsNative) {
  site.Folder().Write("c/data/steps.txt", "say from a file\r\n");
  options.script = "C:\\Data\\STEPS.txt";
  EXPECT_EQ(Play(""), 0);
  EXPECT_EQ(transcript, "say from a file\n");
  options.script = (site.Folder().Path() / "c/data/steps.txt").string();
  EXPECT_EQ(Play(""), 0);
  options.script = "/nowhere/steps.txt";
  EXPECT_EQ(Play(""), 1);
  EXPECT_EQ(told, "cannot read the script /nowhere/steps.txt\n");
}

TEST_F(SessionTest, FolderInPlaceOfAScriptIsReportedAndFails) {
  options.script = site.Folder().Path().string();
  EXPECT_EQ(Play(""), 1);
  EXPECT_EQ(told, "cannot read the script " + options.script + "\n");
}

TEST_F(SessionTest, EmptyScriptFileIsDone) {
  site.Folder().Write("c/data/steps.txt", "");
  options.script = "c:\\data\\steps.txt";
  EXPECT_EQ(Play(""), 0);
  EXPECT_EQ(told, "");
}

TEST_F(SessionTest, ImageIsAddedAndMeasured) {
  const std::string header = site.Write_Image("a", SmallImage());
  ASSERT_EQ(Play("file " + header +
                 "\nmenu Add_images_to_set\nexpect ImageCount 1\nexpect ImageBlock(0).ImageId 1\n"
                 "click Picture1(0) 10 20\nexpect CurrentImage 0\nexpect Check1(0) 1\n"
                 "move Picture1(0) 1 2\nmarks Picture1(0)\n"),
            0)
      << told << transcript;
  EXPECT_TRUE(transcript.starts_with("file title=")) << transcript;
  // The gapped cross of a measuring click.
  EXPECT_TRUE(
      transcript.ends_with("line 10 15 10 18 5 255 211 1\n"
                           "line 10 22 10 25 5 255 211 1\n"
                           "line 5 20 8 20 5 255 211 1\n"
                           "line 12 20 15 20 5 255 211 1\n"))
      << transcript;
}

TEST_F(SessionTest, SizeIsTheClientSizeOfTheMainWindow) {
  options.width = 800;
  options.height = 600;
  EXPECT_EQ(Play("expect Form1.Width 800\nexpect Form1.Height 600\n"), 0) << told;
}

TEST_F(SessionTest, HooksSeeTheBlockBeforeTheStartAndAfterEveryStep) {
  int before = 0, shown = 0;
  hooks.before_start = [&](Workspace& w) { before += w.Form1.Visible ? 100 : 1; };
  hooks.show = [&](Workspace& w) { shown += w.Form1.Visible ? 1 : 100; };
  EXPECT_EQ(Play("say a\nsay b\n"), 0);
  EXPECT_EQ(before, 1);
  EXPECT_EQ(shown, 2);
}

TEST_F(SessionTest, RecordPlaysBackToTheSameTranscript) {
  const std::string header = site.Write_Image("a", SmallImage());
  const std::string steps =
      "file " + header +
      "\nmenu Add_images_to_set\nmove Picture1(0) 1 2\nmove Picture1(0) 3 4\n"
      "click Picture1(0) 10 20\nclick Picture1(0) 100.25 20 alt\nset Text4 \"1 2\"\nkey U\n"
      "during 1 set Check4 1\nmenu Zoom_1_2\ninput 300\ncancel\ntry menu Center_To_Q\n"
      "button cancel\nmenu Exit\n";
  const std::string asked =
      "print Label1(0)\nprint Label10\nprint Solution3D\nprint Check4\nprint Text4\n"
      "print Text1(0)\nprint PaneViews(0)\nmarks Picture1(0)\n";
  options.record = "c:\\data\\recorded.txt";
  ASSERT_EQ(Play(steps + asked), 0) << told << transcript;
  const std::string first = transcript;
  const std::string recorded = site.Folder().Read("c/data/recorded.txt");
  EXPECT_TRUE(recorded.starts_with("resize Form1 1280 1024\n"));
  options.record.clear();
  ASSERT_EQ(Play(recorded + asked), 0) << told << recorded;
  EXPECT_EQ(transcript, first) << recorded;
}

// Takes nothing, as a full disk.
struct FullDisk : std::streambuf {
  int overflow(int) override { return traits_type::eof(); }
};

TEST_F(SessionTest, ATranscriptThatCannotBeWrittenEndsWithFour) {
  std::istringstream in("say a\n");
  std::ostringstream err;
  FullDisk full;
  std::ostream out(&full);
  EXPECT_EQ(Run_Session(options, {in, out, err}), 4);
  EXPECT_EQ(err.str(),
            "the transcript is not complete: it cannot be written, the disk may be full\n");
}

TEST_F(SessionTest, AFailedStepCountsMoreThanALostTranscript) {
  std::istringstream in("frobnicate\n");
  std::ostringstream err;
  FullDisk full;
  std::ostream out(&full);
  EXPECT_EQ(Run_Session(options, {in, out, err}), 1);
}

TEST_F(SessionTest, ARecordThatCannotBeWrittenInFullEndsWithFour) {
  options.record = (site.Folder().Path() / "record.txt").string();
  {
    const FileSizeLimit limit(40);
    EXPECT_EQ(Play("set Text5 1\nset Text5 2\nset Text5 3\nsay on\n"), 4);
  }
  EXPECT_EQ(transcript, "say on\n");
  EXPECT_EQ(told, options.record +
                      ": the record is not complete: it cannot be written, the disk may be full\n");
}

TEST_F(SessionTest, ARecordInAMissingFolderIsRefusedAtOnce) {
  options.record = (site.Folder().Path() / "none/record.txt").string();
  EXPECT_EQ(Play("say never\n"), 1);
  EXPECT_EQ(transcript, "");
  EXPECT_EQ(told, "cannot write the record: Path not found: " + options.record + "\n");
}

}  // namespace
}  // namespace sylvomex
