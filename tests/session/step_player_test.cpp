// SPDX-License-Identifier: MIT
#include "session/step_player.h"

#include <gtest/gtest.h>

#include <sstream>

#include "session/event_steps.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// A player with invented commands: menu item "Ask" opens an input box, "Service" services events
/// three times, "Bad" ends in an error, "Grey" is greyed, "Leave" confirms the exit, "Stubborn"
/// catches every exception of its input box.
struct StepPlayerTest : testing::Test {
  TemporaryFolder folder;
  std::ostringstream transcript, log;
  ScriptScreen screen{transcript, log};
  std::unique_ptr<Workspace> w = std::make_unique<Workspace>(folder.Drives(), screen);
  std::string reported;
  StepPlayer player{*w, screen, Services()};
  int line = 0;

  PlayerServices Services() {
    PlayerServices services;
    services.report = [this](int at, const std::string& reason) {
      reported += std::to_string(at) + ": " + reason + "\n";
    };
    services.handle_event = [this](Workspace&, const OperatorEvent& event) {
      screen.Write_Line("event " + Step_Text(event));
      return Run(event.control);
    };
    return services;
  }

  EventOutcome Run(const std::string& name) {
    if (name == "Ask") static_cast<Screen&>(screen).Input_Box("Give Col");
    if (name == "Service") {
      for (int i = 0; i < 3; ++i) screen.Service_Events();
      screen.Write_Line("served");
    }
    if (name == "Bad") return EventOutcome::Error;
    if (name == "Grey") return EventOutcome::Greyed;
    if (name == "Leave") screen.End_Session();
    if (name == "Nothing") throw UnknownName("there is no Nothing");
    if (name == "Stubborn") Swallow_Everything();
    return EventOutcome::Done;
  }

  void Swallow_Everything() {
    try {
      static_cast<Screen&>(screen).Input_Box("Give Col");
    } catch (...) {
      screen.Write_Line("went on");
    }
  }

  void Play(std::string_view step) { player.Play({++line, Split_Line(step)}); }

  /// The StepEnd that a step throws.
  StepEnd Failure(std::string_view step) {
    try {
      Play(step);
    } catch (const StepEnd& failure) {
      return failure;
    }
    ADD_FAILURE() << step << " did not fail";
    return {};
  }

  /// Status with which a step ends the session, -1 when it does not.
  int Session_End(std::string_view step) {
    try {
      Play(step);
    } catch (const SessionEnd& end) {
      return end.status;
    }
    return -1;
  }
};

TEST_F(StepPlayerTest, EventStepsReachTheHandler) {
  Play("menu Form2.Apply");
  Play("click Picture1(0) 1 2 shift");
  EXPECT_EQ(transcript.str(), "event menu Form2.Apply\nevent click Picture1(0) 1 2 shift\n");
}

TEST_F(StepPlayerTest, UnknownStepAndWrongNumberOfArgumentsFail) {
  EXPECT_EQ(Failure("frobnicate 1").status, kStepFailed);
  EXPECT_EQ(Failure("menu").reason, "menu takes 1 argument");
  EXPECT_EQ(Failure("set Text1(0)").reason, "set takes 2 arguments");
  EXPECT_EQ(Failure("set Text1(0) two words").reason, "set takes 2 arguments");
  EXPECT_EQ(Failure("cancel all").reason, "cancel takes no arguments");
  EXPECT_EQ(Failure("click Picture1(0) 1").reason, "click takes at least 3 arguments");
  EXPECT_EQ(Failure("screenshot a b c").reason, "screenshot takes 1 to 2 arguments");
  EXPECT_EQ(transcript.str(), "");
}

TEST_F(StepPlayerTest, UnknownNameFailsTheStep) {
  EXPECT_EQ(Failure("menu Nothing").status, kStepFailed);
  EXPECT_EQ(Failure("print Nothing").status, kStepFailed);
  EXPECT_EQ(Failure("marks Picture1(9)").status, kStepFailed);
  EXPECT_EQ(Failure("marks Label10").status, kStepFailed);
  EXPECT_EQ(Failure("call Nothing 1").status, kStepFailed);
}

TEST_F(StepPlayerTest, GreyedItemIsReportedAndFails) {
  EXPECT_EQ(Failure("menu Grey").status, kStepFailed);
  EXPECT_EQ(transcript.str(), "event menu Grey\ngreyed Grey\n");
}

TEST_F(StepPlayerTest, CommandErrorHasItsOwnStatus) {
  EXPECT_EQ(Failure("menu Bad").status, kCommandError);
}

TEST_F(StepPlayerTest, TryCatchesFailuresAndErrorsAndKeepsTheirLines) {
  Play("try menu Bad");
  Play("try menu Grey");
  Play("try menu Ask");
  Play("try try print Nothing");
  Play("say on");
  EXPECT_EQ(transcript.str(),
            "event menu Bad\nevent menu Grey\ngreyed Grey\nevent menu Ask\nsay on\n");
}

TEST_F(StepPlayerTest, DialogWithoutAnswerFailsTheStepThatOpenedIt) {
  EXPECT_EQ(Failure("menu Ask").status, kStepFailed);
}

TEST_F(StepPlayerTest, DialogFailureSurvivesACommandThatCatchesIt) {
  EXPECT_EQ(Failure("menu Stubborn").status, kStepFailed);
  EXPECT_EQ(transcript.str(), "event menu Stubborn\nwent on\n");
}

TEST_F(StepPlayerTest, TriedDialogFailureIsForgotten) {
  Play("try menu Stubborn");
  Play("menu Service");
  EXPECT_TRUE(transcript.str().ends_with("served\n"));
}

TEST_F(StepPlayerTest, QueuedAnswerServesTheNextDialog) {
  Play("input \"1 2\"");
  Play("menu Ask");
  EXPECT_EQ(transcript.str(),
            "event menu Ask\ninput \"Give Col\" title=\"\" default=\"\" -> \"1 2\"\n");
}

TEST_F(StepPlayerTest, ButtonNamesAreFour) {
  for (const char* step : {"button ok", "button cancel", "button yes", "button no"}) Play(step);
  EXPECT_EQ(screen.Answers_Left(), 4U);
  EXPECT_EQ(Failure("button maybe").status, kStepFailed);
}

TEST_F(StepPlayerTest, DuringPlaysItsStepAtTheServicing) {
  Play("during 2 say hello");
  Play("during 2 menu Grey2");
  Play("menu Service");
  EXPECT_EQ(transcript.str(), "event menu Service\nsay hello\nevent menu Grey2\nserved\n");
}

TEST_F(StepPlayerTest, DuringIsCheckedWhenItIsRead) {
  EXPECT_EQ(Failure("during 0 say x").status, kStepFailed);
  EXPECT_EQ(Failure("during one say x").status, kStepFailed);
  EXPECT_EQ(Failure("during 1 frobnicate").status, kStepFailed);
  EXPECT_EQ(Failure("during 1 menu").status, kStepFailed);
}

TEST_F(StepPlayerTest, FailureDuringACommandEndsTheSessionWithItsOwnLine) {
  Play("during 2 print Nothing");
  EXPECT_EQ(Session_End("try menu Service"), kStepFailed);
  EXPECT_EQ(reported, "1: Nothing: there is no value Nothing\n");
  EXPECT_EQ(transcript.str(), "event menu Service\n");
}

TEST_F(StepPlayerTest, ErrorDuringACommandEndsTheSession) {
  Play("during 1 menu Bad");
  EXPECT_EQ(Session_End("menu Service"), kCommandError);
}

TEST_F(StepPlayerTest, TryBeforeOrAfterDuringCatchesTheLaterFailure) {
  Play("during 1 try menu Bad");
  Play("try during 2 menu Bad");
  Play("menu Service");
  EXPECT_EQ(transcript.str(), "event menu Service\nevent menu Bad\nevent menu Bad\nserved\n");
}

TEST_F(StepPlayerTest, ConfirmedExitEndsTheSession) {
  EXPECT_EQ(Session_End("menu Leave"), kAllStepsDone);
}

TEST_F(StepPlayerTest, ConfirmedExitInsideACommandEndsTheSessionAtOnce) {
  Play("during 2 menu Leave");
  EXPECT_EQ(Session_End("try menu Service"), kAllStepsDone);
  EXPECT_EQ(transcript.str(), "event menu Service\nevent menu Leave\n");
}

TEST_F(StepPlayerTest, PrintWritesNameAndValue) {
  w->Form1.Label10.Caption = "RMSE: 3.1 um \"x\"\nnext";
  Play("print Label10");
  Play("print Text1(0)");
  EXPECT_EQ(transcript.str(), "Label10 = RMSE: 3.1 um \"x\" next\nText1(0) = \n");
}

TEST_F(StepPlayerTest, ExpectComparesWhatPrintWouldWrite) {
  w->Form1.Label10.Caption = "Images centered to given XYZ";
  w->Solution3D = {1, 2, 0.1};
  Play("expect Label10 \"Images centered to given XYZ\"");
  Play("expect Label10 Images centered to given XYZ");
  Play("expect Solution3D 1 2 0.1");
  Play("expect Text1(0) \"\"");
  EXPECT_EQ(Failure("expect Solution3D 1 2 0.10001").status, kStepFailed);
  EXPECT_EQ(transcript.str(), "");
}

TEST_F(StepPlayerTest, IndexOutsideATableFailsTheStep) {
  EXPECT_EQ(Failure("print ImageKinds(701)").status, kStepFailed);
  EXPECT_EQ(Failure("print XYDistanceEntries(9).X").status, kStepFailed);
}

TEST_F(StepPlayerTest, MarksWritesOneLineAMark) {
  Picture& picture = w->Form1.Picture1(2);
  Plot_Point(picture, 1, 2, {3, 4, 5});
  Draw_Line(picture, 1, 2, 3, 4, {0, 0, 0});
  Play("marks Picture1(2)");
  Play("marks Form1.Picture1(1)");
  EXPECT_EQ(transcript.str(), "point 1 2 3 4 5 1\nline 1 2 3 4 0 0 0 1\n");
}

TEST_F(StepPlayerTest, CallRepeatsItsArgumentsAsTyped) {
  Play("call Format 0.5 \"#.00\"");
  Play("call  Format   -0.50 0.0");
  EXPECT_EQ(transcript.str(), "Format 0.5 \"#.00\" = \".50\"\nFormat -0.50 0.0 = \"-0.5\"\n");
}

TEST_F(StepPlayerTest, CallOfAnAbsentImageIsAnErrorLine) {
  EXPECT_EQ(Failure("call Object_To_Pixel 9999 1 2 3").status, kCommandError);
  EXPECT_TRUE(transcript.str().starts_with("error Object_To_Pixel \"Subscript out of range"))
      << transcript.str();
}

TEST_F(StepPlayerTest, CallWithWrongArgumentsFails) {
  EXPECT_EQ(Failure("call Format 1").status, kStepFailed);
  EXPECT_EQ(Failure("call Get_Raster_Elevation 1 north").status, kStepFailed);
  EXPECT_EQ(transcript.str(), "");
}

TEST_F(StepPlayerTest, SayWritesItsText) {
  Play("say \"two words\"");
  Play("say two   words");
  EXPECT_EQ(transcript.str(), "say two words\nsay two words\n");
}

TEST_F(StepPlayerTest, ScreenshotNeedsTheDesktop) {
  EXPECT_EQ(Failure("screenshot a.png").reason, "a screenshot needs the desktop");
}

struct FakePictures : WindowPictures {
  std::string saved;
  void Save_Window(const std::string& form, const std::filesystem::path& file) override {
    saved += form + " " + file.string() + "\n";
  }
};

TEST_F(StepPlayerTest, ScreenshotGoesToADriveOrANativePath) {
  FakePictures pictures;
  PlayerServices services = Services();
  services.pictures = &pictures;
  StepPlayer desktop_player(*w, screen, std::move(services));
  desktop_player.Play({1, Split_Line("screenshot c:\\data\\a.png")});
  desktop_player.Play({2, Split_Line("screenshot Form2 /x/b.png")});
  const std::string drive = (folder.Path() / "c/data/a.png").string();
  EXPECT_EQ(pictures.saved, "Form1 " + drive + "\nForm2 /x/b.png\n");
  EXPECT_THROW(desktop_player.Play({3, Split_Line("screenshot Form99 c.png")}), StepEnd);
}

TEST_F(StepPlayerTest, SaveThatCannotWriteFailsTheStep) {
  w->Form1.Picture1(0).Width = w->Form1.Picture1(0).Height = 20;
  EXPECT_EQ(Failure("save Picture1(0) /nowhere/at/all.png").status, kStepFailed);
  folder.Make_Folder("d");
  Play("save Picture1(0) d:\\a.png");
  EXPECT_TRUE(folder.Has("d/a.png"));
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST_F(StepPlayerTest, StepsMayBeNestedAHundredDeep) {
  Play(Repeated("try ", 100) + "say in");
  EXPECT_EQ(transcript.str(), "say in\n");
  Play(Repeated("during 1 ", 50) + Repeated("try ", 50) + "say later");
}

TEST_F(StepPlayerTest, StepsNestedDeeperAreRefusedWithTheLimit) {
  for (const std::string& step :
       {Repeated("try ", 101), Repeated("during 1 ", 101), Repeated("try during 1 ", 51),
        Repeated("try ", 20000), Repeated("during 1 ", 20000)}) {
    try {
      Play(step + "say in");
      ADD_FAILURE() << "played";
    } catch (const StepEnd& end) {
      EXPECT_EQ(end.status, kStepFailed);
      EXPECT_TRUE(end.reason.starts_with("steps are nested ")) << end.reason;
      EXPECT_TRUE(end.reason.ends_with(" deep, the limit is 100")) << end.reason;
    }
  }
  EXPECT_EQ(transcript.str(), "");
}

}  // namespace
}  // namespace sylvomex
