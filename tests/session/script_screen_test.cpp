// SPDX-License-Identifier: MIT
#include "session/script_screen.h"

#include <gtest/gtest.h>

#include <sstream>

namespace sylvomex {
namespace {

struct ScreenFixture : testing::Test {
  std::ostringstream transcript, log;
  ScriptScreen script_screen{transcript, log};
  Screen& screen = script_screen;

  void Queue(QueuedAnswer::Kind kind, const char* text = "") {
    script_screen.Queue_Answer({kind, text});
  }
};
using ScriptScreenTest = ScreenFixture;
using Kind = QueuedAnswer::Kind;

TEST_F(ScriptScreenTest, MessageWithOkAloneDoesNotUseTheQueue) {
  Queue(Kind::Input, "5");
  EXPECT_EQ(screen.Message_Box("Need a 3D solution!"), Answer::Ok);
  EXPECT_EQ(transcript.str(), "message \"Need a 3D solution!\" title=\"\" buttons=ok -> ok\n");
  EXPECT_EQ(script_screen.Answers_Left(), 1U);
}

TEST_F(ScriptScreenTest, MessageWithAChoiceTakesAButton) {
  Queue(Kind::Button, "cancel");
  Queue(Kind::Button, "yes");
  EXPECT_EQ(screen.Message_Box("Do you wish to exit?", Buttons::OkCancel, "3D-measurements"),
            Answer::Cancel);
  EXPECT_EQ(screen.Message_Box("Go on?", Buttons::YesNo), Answer::Yes);
  EXPECT_EQ(transcript.str(),
            "message \"Do you wish to exit?\" title=\"3D-measurements\" buttons=ok,cancel -> "
            "cancel\n"
            "message \"Go on?\" title=\"\" buttons=yes,no -> yes\n");
}

TEST_F(ScriptScreenTest, InputBoxShowsItsAnswerInQuotes) {
  Queue(Kind::Input, "120");
  Queue(Kind::Input, "");
  Queue(Kind::Cancel);
  EXPECT_EQ(screen.Input_Box("Give Col"), "120");
  EXPECT_EQ(screen.Input_Box("Give Row", "Row", "7"), "");
  EXPECT_EQ(screen.Input_Box("Give Row"), std::nullopt);
  EXPECT_EQ(transcript.str(),
            "input \"Give Col\" title=\"\" default=\"\" -> \"120\"\n"
            "input \"Give Row\" title=\"Row\" default=\"7\" -> \"\"\n"
            "input \"Give Row\" title=\"\" default=\"\" -> cancel\n");
}

TEST_F(ScriptScreenTest, FileDialogShowsTheChoice) {
  Queue(Kind::File, "c:\\data\\a.hdr");
  Queue(Kind::Cancel);
  const FileQuestion question{"Header file for an image", "Set files (*.hdr)|*.hdr", 1, ""};
  EXPECT_EQ(screen.File_Dialog(question), "c:\\data\\a.hdr");
  EXPECT_EQ(screen.File_Dialog({"Map", "", 1, "c:\\apu"}), std::nullopt);
  EXPECT_EQ(transcript.str(),
            "file title=\"Header file for an image\" filter=\"Set files (*.hdr)|*.hdr\" "
            "folder=\"\" -> \"c:\\data\\a.hdr\"\n"
            "file title=\"Map\" filter=\"\" folder=\"c:\\apu\" -> cancel\n");
}

TEST_F(ScriptScreenTest, ACauseIsALineOfTheLogAndNotOfTheTranscript) {
  screen.Tell_Cause("c:\\data\\a.hdr, line 3\nitem 4");
  screen.Message_Box("An error occurred!");
  EXPECT_EQ(log.str(), "sylvomex: c:\\data\\a.hdr, line 3 item 4\n");
  EXPECT_EQ(transcript.str(), "message \"An error occurred!\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(ScriptScreenTest, TextsAreOneLineWithQuotesDoubled) {
  screen.Message_Box("a \"b\"\r\nc\nd");
  EXPECT_EQ(transcript.str(), "message \"a \"\"b\"\" c d\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(ScriptScreenTest, BeepClipboardAndErrorAreLines) {
  screen.Beep(1000, 200);
  screen.Clear_Clipboard();
  screen.Copy_To_Clipboard({640, 480, {}});
  screen.Report_Error("Add_images_to_set", "File not found: c:\\data\\a.hdr", "/x/c/data/a.hdr");
  EXPECT_EQ(transcript.str(),
            "beep 1000 200\nclipboard 640x480\n"
            "error Add_images_to_set \"File not found: c:\\data\\a.hdr\"\n");
  EXPECT_NE(log.str().find("/x/c/data/a.hdr"), std::string::npos);
}

TEST_F(ScriptScreenTest, EmptyQueueFailsTheDialog) {
  EXPECT_THROW(screen.Input_Box("Give Col"), StepEnd);
  EXPECT_THROW(screen.File_Dialog({}), StepEnd);
  EXPECT_THROW(screen.Message_Box("Go on?", Buttons::YesNo), StepEnd);
  EXPECT_EQ(transcript.str(), "");
}

TEST_F(ScriptScreenTest, AnswerOfAnotherKindFailsTheDialogAndStays) {
  Queue(Kind::File, "a");
  EXPECT_THROW(screen.Input_Box("Give Col"), StepEnd);
  EXPECT_THROW(screen.Message_Box("Go on?", Buttons::YesNo), StepEnd);
  EXPECT_EQ(script_screen.Answers_Left(), 1U);
  EXPECT_EQ(screen.File_Dialog({}), "a");
}

TEST_F(ScriptScreenTest, CancelDoesNotAnswerAMessageBox) {
  Queue(Kind::Cancel);
  EXPECT_THROW(screen.Message_Box("Exit?", Buttons::OkCancel), StepEnd);
}

TEST_F(ScriptScreenTest, ButtonThatTheBoxDoesNotHaveFails) {
  Queue(Kind::Button, "yes");
  EXPECT_THROW(screen.Message_Box("Exit?", Buttons::OkCancel), StepEnd);
}

TEST_F(ScriptScreenTest, FailedDialogIsRememberedUntilCleared) {
  EXPECT_THROW(screen.Input_Box("Give Col"), StepEnd);
  ASSERT_TRUE(script_screen.Failure_Of_Dialog());
  EXPECT_EQ(script_screen.Failure_Of_Dialog()->status, kStepFailed);
  script_screen.Drop_Failure();
  EXPECT_FALSE(script_screen.Failure_Of_Dialog());
}

ScriptStep Say(const char* text) { return {1, {{"say", "say"}, {text, text}}}; }

struct QueuedStepsTest : ScreenFixture {
  std::string played;
  QueuedStepsTest() {
    script_screen.Play_Queued_Steps_By(
        [this](const ScriptStep& step) { played += step.words[1].text + " "; });
  }
  void Service(int times) {
    for (int i = 0; i < times; ++i) screen.Service_Events();
  }
};

TEST_F(QueuedStepsTest, StepIsPlayedAtTheNthServicingFromNow) {
  Service(5);
  script_screen.Queue_Step(3, Say("third"));
  script_screen.Queue_Step(1, Say("first"));
  Service(1);
  EXPECT_EQ(played, "first ");
  Service(1);
  EXPECT_EQ(played, "first ");
  Service(1);
  EXPECT_EQ(played, "first third ");
  EXPECT_EQ(script_screen.Steps_Left(), 0U);
}

TEST_F(QueuedStepsTest, StepsOfOneServicingKeepTheirOrder) {
  script_screen.Queue_Step(2, Say("a"));
  script_screen.Queue_Step(2, Say("b"));
  Service(2);
  EXPECT_EQ(played, "a b ");
}

TEST_F(QueuedStepsTest, ServicingInsideAQueuedStepIsALaterOne) {
  script_screen.Play_Queued_Steps_By([this](const ScriptStep& step) {
    played += step.words[1].text + "( ";
    if (step.words[1].text == "a") screen.Service_Events();
    played += ") ";
  });
  script_screen.Queue_Step(1, Say("a"));
  script_screen.Queue_Step(1, Say("b"));
  script_screen.Queue_Step(2, Say("inside"));
  Service(1);
  EXPECT_EQ(played, "a( inside( ) ) b( ) ");
}

TEST_F(ScriptScreenTest, RandomNumbersAreTheSameInEverySession) {
  std::ostringstream out;
  ScriptScreen other(out, out);
  for (int i = 0; i < 100; ++i) {
    const double random = screen.Random();
    EXPECT_GE(random, 0);
    EXPECT_LT(random, 1);
    EXPECT_EQ(random, other.Random());
  }
}

TEST_F(ScriptScreenTest, ClockIsMonotonic) {
  const double before = screen.Clock();
  EXPECT_GE(screen.Clock(), before);
}

}  // namespace
}  // namespace sylvomex
