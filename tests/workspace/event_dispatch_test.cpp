// SPDX-License-Identifier: MIT
// Dispatch of events to the handlers of their own window.
#include "workspace/event_dispatch.h"

#include <gtest/gtest.h>

#include <sstream>

#include "session/event_steps.h"
#include "session/script_screen.h"
#include "support/sample_window.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

// Fields of a line in sample::told: what, index, button, shift, key code, x, y.
struct EventDispatch : testing::Test {
  TemporaryFolder folder;
  std::ostringstream out;
  ScriptScreen screen{out, out};
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  Workspace& w = *block;
  SampleForm form;

  EventOutcome Do(const std::string& step) {
    return Handle_Window_Event(w, sample::kWindow, Event_Of_Step(Split_Line(step)));
  }
  std::string Told_By(const std::string& step) {
    sample::told.clear();
    Do(step);
    return sample::told;
  }
};

TEST_F(EventDispatch, PointerMovesOverAPictureWithoutIndex) {
  EXPECT_EQ(Told_By("move Form99.Picture1 12 34"), "move -1 1 0 0 12 34\n");
}

TEST_F(EventDispatch, AClickOnAPictureOfAnArrayPassesItsIndex) {
  EXPECT_EQ(Told_By("click Form99.Picture2(1) 5 6 right ctrl"), "press 1 2 2 0 5 6\n");
}

TEST_F(EventDispatch, ADoubleClickGoesToItsHandlerAlone) {
  EXPECT_EQ(Told_By("doubleclick Form99.Picture1 7 8"), "double -1 1 0 0 7 8\n");
}

TEST_F(EventDispatch, ADoubleClickWithoutHandlerIsTwoPresses) {
  EXPECT_EQ(Told_By("doubleclick Form99.Picture2(0) 7 8"),
            "press 0 1 0 0 7 8\npress 0 1 0 0 7 8\n");
}

TEST_F(EventDispatch, AClickWithoutHandlerDoesNothing) {
  EXPECT_EQ(Told_By("click Form99.Picture1 1 2"), "");
}

TEST_F(EventDispatch, TheWindowItselfIsClickedAndPointedAt) {
  EXPECT_EQ(Told_By("click Form99 3 4"), "press -1 1 0 0 3 4\n");
  EXPECT_EQ(Told_By("move Form99 5 6"), "move -1 1 0 0 5 6\n");
}

TEST_F(EventDispatch, AHiddenPictureTakesNoPointer) {
  form.Picture1.Visible = false;
  EXPECT_THROW(Do("move Form99.Picture1 1 2"), UnknownName);
  EXPECT_THROW(Do("doubleclick Form99.Picture1 1 2"), UnknownName);
}

TEST_F(EventDispatch, AControlThatIsNotAPictureIsNotClicked) {
  EXPECT_THROW(Do("click Form99.Text1 1 2"), UnknownName);
}

TEST_F(EventDispatch, AResizeIsInTheRecordBeforeItsHandlerRuns) {
  EXPECT_EQ(Told_By("resize Form99 500 400"), "resize -1 0 0 0 0 0\n");
  EXPECT_EQ(form.ClientWidth, 500);
  EXPECT_EQ(form.ClientHeight, 400);
}

TEST_F(EventDispatch, TheWindowHandlesAKeyBeforeItsMenu) {
  EXPECT_EQ(Told_By("key Form99 G ctrl"), "key -1 0 2 71 0 0\nmenu\n");
}

TEST_F(EventDispatch, TheKeyOfAGreyedItemIsNotTakenByTheMenu) {
  EXPECT_EQ(Told_By("key Form99 H ctrl"), "key -1 0 2 72 0 0\n");
}

TEST_F(EventDispatch, AKeyNotUsedByTheMenuReachesTheFocusedControl) {
  form.ActiveControl = "Text1";
  EXPECT_EQ(Told_By("key Form99 U"), "key -1 0 0 85 0 0\nboxkey -1 0 0 85 0 0\n");
  EXPECT_EQ(Told_By("key Form99 G ctrl"), "key -1 0 2 71 0 0\nmenu\n");
}

TEST_F(EventDispatch, EnterInABoxIsAKeyAndThenAPress) {
  EXPECT_EQ(Told_By("press Form99.Text1"), "boxkey -1 0 0 13 0 0\nenter -1 0 0 13 0 0\n");
  EXPECT_EQ(form.ActiveControl, "Text1");
}

TEST_F(EventDispatch, EnterOnAFocusedPicturePressesNothing) {
  form.ActiveControl = "Picture1";
  EXPECT_EQ(Told_By("key Form99 Enter"), "key -1 0 0 13 0 0\n");
}

TEST_F(EventDispatch, ACheckBoxReportsAChangeOnly) {
  EXPECT_EQ(Told_By("set Form99.Check1 1"), "click -1 0 0 0 0 0\n");
  EXPECT_EQ(Told_By("set Form99.Check1 1"), "");
}

TEST_F(EventDispatch, AnOptionUnselectsTheOthers) {
  EXPECT_EQ(Told_By("set Form99.Option1(0) 1"), "click 0 0 0 0 0 0\n");
  EXPECT_EQ(Told_By("set Form99.Option1(1) 1"), "click 1 0 0 0 0 0\n");
  EXPECT_EQ(form.Option1(0).Value, 0);
  EXPECT_EQ(form.Option1(1).Value, 1);
  EXPECT_EQ(Told_By("set Form99.Option1(1) 1"), "");
  EXPECT_THROW(Do("set Form99.Option1(1) 0"), UnknownName);
}

TEST_F(EventDispatch, AGreyedItemIsNotRunByItsMenuButByItsCommand) {
  EXPECT_EQ(Do("menu Form99.Greyed_Item"), EventOutcome::Greyed);
  EXPECT_EQ(Told_By("command Form99.Greyed_Item"), "menu\n");
}

TEST_F(EventDispatch, AFailureIsShownUnderItsHandlerAndLeavesNoHourglass) {
  w.Form1.MousePointer = PointerShape::Hourglass;
  w.Form1.Picture1(2).MousePointer = PointerShape::Hourglass;
  EXPECT_EQ(Do("press Form99.Command1"), EventOutcome::Error);
  EXPECT_EQ(out.str(), "error Command1_Click \"Division by zero: the sample\"\n");
  EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  EXPECT_EQ(w.Form1.Picture1(2).MousePointer, PointerShape::Normal);
}

TEST_F(EventDispatch, ClosingAWindowWithoutAnItemForItHidesIt) {
  form.Visible = true;
  EXPECT_EQ(Do("close Form99"), EventOutcome::Done);
  EXPECT_FALSE(form.Visible);
  EXPECT_EQ(Close_Event(sample::kWindow).kind, OperatorEvent::Kind::Close);
}

TEST_F(EventDispatch, AWindowThatDoesNotExistIsNamed) {
  EXPECT_THROW(Handle_Event(w, Event_Of_Step(Split_Line("click Form99.Picture1 1 2"))),
               UnknownName);
}

// Each handler begins the next one, as events serviced inside a command do.
int Handlers_Inside_One_Another(Workspace& w) {
  int begun = 0;
  std::function<void()> handler = [&] {
    ++begun;
    Run_Handler(w, "Next", handler);
  };
  Run_Handler(w, "First", handler);
  return begun;
}

TEST_F(EventDispatch, ATableThatCannotBeThatLongIsAnErrorOfItsCommand) {
  Run_Handler(w, "Long", [] { std::vector<int>().resize(std::vector<int>().max_size() + 1); });
  EXPECT_EQ(out.str(), "error Long \"Out of memory\"\n");
}

TEST_F(EventDispatch, AFailureOfTheFileSystemIsAnErrorOfItsCommand) {
  Run_Handler(w, "Size", [] { (void)std::filesystem::file_size("/nowhere/a.raw"); });
  EXPECT_NE(out.str().find("error Size \"File error: "), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("/nowhere/a.raw"), std::string::npos) << out.str();
}

TEST_F(EventDispatch, HandlersRunInsideOneAnotherUpToALimit) {
  EXPECT_EQ(Handlers_Inside_One_Another(w), kMostNestedHandlers);
  EXPECT_EQ(out.str(),
            "error Next \"Out of memory: 100 commands run inside one another already\"\n");
  EXPECT_EQ(Handlers_Inside_One_Another(w), kMostNestedHandlers);
}

}  // namespace
}  // namespace sylvomex
