// SPDX-License-Identifier: MIT
#include "session/recorder.h"

#include <gtest/gtest.h>

#include <sstream>

#include "session/event_steps.h"
#include "session/recorder_screen.h"
#include "session/script_reader.h"
#include "session/script_screen.h"

namespace sylvomex {
namespace {

struct RecorderTest : testing::Test {
  std::ostringstream script;
  Recorder recorder{script, DriveMap("/site"), 1280, 1024};

  static OperatorEvent Event(std::string_view line) { return Event_Of_Step(Split_Line(line)); }
  void Begin(std::string_view line) { recorder.Begin_Event(Event(line)); }
  void End(EventOutcome outcome = EventOutcome::Done) { recorder.End_Event(outcome); }
  void Whole(std::string_view line) {
    Begin(line);
    End();
  }

  /// What was written after the first line.
  std::string Steps() const {
    const std::string text = script.str();
    return text.substr(text.find('\n') + 1);
  }
};

TEST_F(RecorderTest, FirstLineIsTheSizeOfTheMainWindow) {
  EXPECT_EQ(script.str(), "resize Form1 1280 1024\n");
}

TEST_F(RecorderTest, EventIsWrittenWhenItEnds) {
  Begin("menu Clear_all");
  EXPECT_EQ(Steps(), "");
  End();
  EXPECT_EQ(Steps(), "menu Clear_all\n");
}

TEST_F(RecorderTest, ACancelledEventIsRecordedWithTheStepsOfItsWork) {
  Begin("menu Compute_Back_Projections");
  recorder.Events_Serviced();
  Begin("click Picture1(0) 1 2");
  End();
  recorder.End_Event(EventOutcome::Cancelled, 12);
  EXPECT_EQ(Steps(),
            "during 1 click Picture1(0) 1 2\ncancelled 12 menu Compute_Back_Projections\n");
}

TEST_F(RecorderTest, AnswersStandBeforeTheirStepInOrder) {
  Begin("menu Center_To_Q");
  recorder.Dialog_Answered(DialogKind::Input, "two words");
  recorder.Dialog_Answered(DialogKind::Input, "");
  recorder.Dialog_Answered(DialogKind::File, "c:\\data\\a.hdr");
  recorder.Dialog_Answered(DialogKind::File, std::nullopt);
  recorder.Dialog_Answered(DialogKind::Message, "yes");
  End();
  EXPECT_EQ(Steps(),
            "input \"two words\"\ninput \"\"\nfile c:\\data\\a.hdr\ncancel\nbutton yes\n"
            "menu Center_To_Q\n");
}

TEST_F(RecorderTest, FilesOnTheDrivesAreNamedAsOnAnyMachine) {
  Begin("set Form2.Text1 /site/d/heights/a.hdr");
  recorder.Dialog_Answered(DialogKind::File, "/site/c/data/Two words.hdr");
  recorder.Dialog_Answered(DialogKind::Input, "/site/e/b.txt");
  End();
  EXPECT_EQ(Steps(),
            "file \"c:\\data\\Two words.hdr\"\ninput e:\\b.txt\n"
            "set Form2.Text1 d:\\heights\\a.hdr\n");
}

TEST_F(RecorderTest, OtherTextsAndFilesOffTheDrivesStayAsTheyAre) {
  Begin("set Text4 23/5");
  recorder.Dialog_Answered(DialogKind::File, "/elsewhere/c/data/a.hdr");
  recorder.Dialog_Answered(DialogKind::File, "c:\\data\\a.hdr");
  recorder.Dialog_Answered(DialogKind::Input, "/site");
  End();
  EXPECT_EQ(Steps(),
            "file /elsewhere/c/data/a.hdr\nfile c:\\data\\a.hdr\ninput /site\nset Text4 23/5\n");
}

TEST_F(RecorderTest, EventInsideAnotherIsQueuedForItsServicing) {
  Begin("command Triplet_Matching");
  recorder.Events_Serviced();
  recorder.Events_Serviced();
  recorder.Events_Serviced();
  Whole("set Check4 1");
  recorder.Events_Serviced();
  End();
  EXPECT_EQ(Steps(), "during 3 set Check4 1\ncommand Triplet_Matching\n");
}

TEST_F(RecorderTest, ServicingsAreCountedFromTheOuterEvent) {
  Begin("menu A");
  recorder.Events_Serviced();
  End();
  Begin("menu B");
  recorder.Events_Serviced();
  Begin("menu C");
  recorder.Events_Serviced();
  Whole("menu D");
  End();
  End();
  EXPECT_EQ(Steps(), "menu A\nduring 1 menu C\nduring 2 menu D\nmenu B\n");
}

TEST_F(RecorderTest, EventThatBeganInADialogPrecedesItsStep) {
  Begin("menu A");
  Whole("resize Form1 800 600");
  End();
  EXPECT_EQ(Steps(), "resize Form1 800 600\nmenu A\n");
}

TEST_F(RecorderTest, EventThatFailedIsTried) {
  Begin("menu A");
  recorder.Events_Serviced();
  Begin("menu B");
  End(EventOutcome::Error);
  End(EventOutcome::Error);
  EXPECT_EQ(Steps(), "during 1 try menu B\ntry menu A\n");
}

TEST_F(RecorderTest, OfMovesOverOneControlOnlyTheLastIsKept) {
  Whole("move Picture1(0) 1 1");
  Whole("move Picture1(0) 2 2");
  Whole("move Picture1(0) 3 3");
  EXPECT_EQ(Steps(), "");
  Whole("click Picture1(0) 3 3");
  EXPECT_EQ(Steps(), "move Picture1(0) 3 3\nclick Picture1(0) 3 3\n");
}

TEST_F(RecorderTest, MovesOverOtherControlsAreKept) {
  Whole("move Picture1(0) 1 1");
  Whole("move Picture1(1) 2 2");
  Whole("move Form1 3 3");
  recorder.Finish();
  EXPECT_EQ(Steps(), "move Picture1(0) 1 1\nmove Picture1(1) 2 2\nmove Form1 3 3\n");
}

TEST_F(RecorderTest, MoveInsideAMoveOverTheSameControlReplacesIt) {
  Begin("move Picture1(0) 1 1");
  recorder.Events_Serviced();
  Whole("move Picture1(0) 2 2");
  End();
  recorder.Finish();
  EXPECT_EQ(Steps(), "move Picture1(0) 2 2\n");
}

TEST_F(RecorderTest, MoveDuringACommandIsKept) {
  Begin("menu A");
  recorder.Events_Serviced();
  Whole("move Picture1(0) 1 1");
  recorder.Events_Serviced();
  Whole("move Picture1(0) 2 2");
  End();
  EXPECT_EQ(Steps(), "during 1 move Picture1(0) 1 1\nduring 2 move Picture1(0) 2 2\nmenu A\n");
}

TEST_F(RecorderTest, FinishWritesRunningEvents) {
  Begin("menu Exit");
  recorder.Dialog_Answered(DialogKind::Message, "ok");
  recorder.Finish();
  EXPECT_EQ(Steps(), "button ok\nmenu Exit\n");
  End();
  EXPECT_EQ(Steps(), "button ok\nmenu Exit\n");
}

TEST_F(RecorderTest, ScreenReportsTheAnswersAndForwardsEverything) {
  std::ostringstream transcript, log;
  ScriptScreen inner(transcript, log);
  RecorderScreen outer(inner, recorder);
  Screen& screen = outer;
  inner.Queue_Answer({QueuedAnswer::Kind::Input, "7"});
  inner.Queue_Answer({QueuedAnswer::Kind::Cancel, ""});
  inner.Queue_Answer({QueuedAnswer::Kind::Button, "cancel"});
  Begin("menu A");
  EXPECT_EQ(screen.Input_Box("Give Col"), "7");
  EXPECT_EQ(screen.File_Dialog({}), std::nullopt);
  EXPECT_EQ(screen.Message_Box("Exit?", Buttons::OkCancel), Answer::Cancel);
  EXPECT_EQ(screen.Message_Box("Done"), Answer::Ok);
  screen.Beep(800, 50);
  End();
  EXPECT_EQ(Steps(), "input 7\ncancel\nbutton cancel\nmenu A\n");
  EXPECT_TRUE(transcript.str().ends_with("buttons=ok -> ok\nbeep 800 50\n"));
}

}  // namespace
}  // namespace sylvomex
