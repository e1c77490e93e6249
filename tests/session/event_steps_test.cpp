// SPDX-License-Identifier: MIT
#include "session/event_steps.h"

#include <gtest/gtest.h>

#include "session/key_names.h"
#include "session/step_end.h"

namespace sylvomex {

bool operator==(const OperatorEvent& a, const OperatorEvent& b) {
  return a.kind == b.kind && a.form == b.form && a.control == b.control && a.text == b.text &&
         a.button == b.button && a.shift == b.shift && a.key_code == b.key_code && a.x == b.x &&
         a.y == b.y && a.notches == b.notches;
}

namespace {

using Kind = OperatorEvent::Kind;

OperatorEvent Event_Of(std::string_view line) { return Event_Of_Step(Split_Line(line)); }

TEST(EventSteps, MenuItemOfTheMainWindow) {
  const OperatorEvent event = Event_Of("menu Point_Intersection");
  EXPECT_EQ(event.kind, Kind::Menu);
  EXPECT_EQ(event.form, "Form1");
  EXPECT_EQ(event.control, "Point_Intersection");
}

TEST(EventSteps, MenuItemOfAnotherWindow) {
  const OperatorEvent event = Event_Of("menu Form2.Apply");
  EXPECT_EQ(event.form, "Form2");
  EXPECT_EQ(event.control, "Apply");
}

TEST(EventSteps, SetTypesTheWholeValue) {
  const OperatorEvent event = Event_Of("set Form2.Text12 \"c:\\a b.txt\"");
  EXPECT_EQ(event.kind, Kind::Set);
  EXPECT_EQ(event.form, "Form2");
  EXPECT_EQ(event.control, "Text12");
  EXPECT_EQ(event.text, "c:\\a b.txt");
}

TEST(EventSteps, ClickIsALeftClickWithoutModifiers) {
  const OperatorEvent event = Event_Of("click Picture1(2) 12.5 -3");
  EXPECT_EQ(event.kind, Kind::Click);
  EXPECT_EQ(event.control, "Picture1(2)");
  EXPECT_EQ(event.x, 12.5);
  EXPECT_EQ(event.y, -3);
  EXPECT_EQ(event.button, kLeftButton);
  EXPECT_EQ(event.shift, 0);
}

TEST(EventSteps, ClickTakesItsWordsInAnyOrder) {
  const OperatorEvent event = Event_Of("click Picture1(0) 1 2 alt right shift");
  EXPECT_EQ(event.button, kRightButton);
  EXPECT_EQ(event.shift, kShift | kAlt);
  EXPECT_EQ(Event_Of("doubleclick Picture1(0) 1 2 ctrl").shift, kCtrl);
}

TEST(EventSteps, MoveGoesOverAPictureOrAWindow) {
  EXPECT_EQ(Event_Of("move Picture1(0) 1 2").control, "Picture1(0)");
  const OperatorEvent event = Event_Of("move Form1 1 2");
  EXPECT_EQ(event.form, "Form1");
  EXPECT_EQ(event.control, "");
  EXPECT_EQ(Event_Of("move Form5.Picture1 1 2").form, "Form5");
}

TEST(EventSteps, KeyGoesToTheMainWindowUnlessNamed) {
  EXPECT_EQ(Event_Of("key F2").form, "Form1");
  EXPECT_EQ(Event_Of("key F2").key_code, 113);
  const OperatorEvent event = Event_Of("key Form2 a ctrl shift");
  EXPECT_EQ(event.form, "Form2");
  EXPECT_EQ(event.key_code, 'A');
  EXPECT_EQ(event.shift, kCtrl | kShift);
}

TEST(EventSteps, WheelHasItsNotchesAndPlace) {
  const OperatorEvent event = Event_Of("wheel Picture1(2) 12.5 30 -2 ctrl");
  EXPECT_EQ(event.kind, Kind::Wheel);
  EXPECT_EQ(event.control, "Picture1(2)");
  EXPECT_EQ(event.x, 12.5);
  EXPECT_EQ(event.y, 30);
  EXPECT_EQ(event.notches, -2);
  EXPECT_EQ(event.shift, kCtrl);
}

TEST(EventSteps, PanHasItsDistance) {
  const OperatorEvent event = Event_Of("pan Picture1(2) -8 3.5 shift");
  EXPECT_EQ(event.kind, Kind::Pan);
  EXPECT_EQ(event.x, -8);
  EXPECT_EQ(event.y, 3.5);
  EXPECT_EQ(event.shift, kShift);
}

TEST(EventSteps, ResizeHasTheSize) {
  const OperatorEvent event = Event_Of("resize Form1 800 600");
  EXPECT_EQ(event.kind, Kind::Resize);
  EXPECT_EQ(event.form, "Form1");
  EXPECT_EQ(event.x, 800);
  EXPECT_EQ(event.y, 600);
}

TEST(EventSteps, InvalidArgumentFails) {
  EXPECT_THROW(Event_Of("click Picture1(0) 1 two"), StepEnd);
  EXPECT_THROW(Event_Of("click Picture1(0) 1 2 upper"), StepEnd);
  EXPECT_THROW(Event_Of("key Q7"), StepEnd);
  EXPECT_THROW(Event_Of("key A right"), StepEnd);
  EXPECT_THROW(Event_Of("resize Form1 -1 600"), StepEnd);
  EXPECT_THROW(Event_Of("resize Form1 16385 600"), StepEnd);
  EXPECT_THROW(Event_Of("resize Form8 600 1e300"), StepEnd);
  EXPECT_NO_THROW(Event_Of("resize Form1 16384 16384"));
  EXPECT_THROW(Event_Of("move Form1 nan 2"), StepEnd);
  EXPECT_THROW(Event_Of("wheel Picture1(0) 1 2 0.5"), StepEnd);
  EXPECT_THROW(Event_Of("wheel Picture1(0) 1 2 101"), StepEnd);
  EXPECT_THROW(Event_Of("wheel Picture1(0) 1 2 1 shift"), StepEnd);
  EXPECT_THROW(Event_Of("pan Picture1(0) 1 2 ctrl"), StepEnd);
}

TEST(EventSteps, EveryStepIsWrittenAsRead) {
  for (const char* line : {"menu Exit",
                           "menu Form2.Apply",
                           "command Zonal",
                           "set Text1(3) 0.0123",
                           "set Form2.Text5 \"\"",
                           "set Text4 \"a \"\"b\"\" c\"",
                           "press Form3.Accept_And_Save_Button",
                           "click Picture1(0) 12.5 0.1",
                           "click Picture1(8) 1 2 right shift ctrl alt",
                           "doubleclick Form5.Picture1 3 4",
                           "move Picture1(1) 1e-05 2",
                           "move Form1 5 6",
                           "key Form2 Enter",
                           "key U",
                           "key 7 shift",
                           "key num4",
                           "key F12 ctrl",
                           "key code191",
                           "resize Form1 1280 1024",
                           "wheel Picture1(3) 12.5 7 -2",
                           "wheel Picture1(0) 1 2 3 ctrl",
                           "pan Picture1(1) -3.5 4",
                           "pan Picture1(0) 1 -2 shift"}) {
    EXPECT_EQ(Step_Text(Event_Of(line)), line);
    EXPECT_EQ(Event_Of(Step_Text(Event_Of(line))), Event_Of(line));
  }
}

TEST(EventSteps, AControlNamedLikeOneOfAWindowKeepsItsWindow) {
  for (const char* line : {"press Form1.Form1.", "press Form1.Form2.Text5", "set Form1.Form3. 1"}) {
    EXPECT_EQ(Step_Text(Event_Of(line)), line);
    EXPECT_EQ(Event_Of(Step_Text(Event_Of(line))), Event_Of(line));
  }
}

TEST(EventSteps, EnterInABoxOfAnotherWindowIsWrittenAsItsPress) {
  OperatorEvent event;
  event.kind = Kind::Key;
  event.form = "Form7";
  event.control = "Text3(2)";
  event.key_code = 13;
  EXPECT_EQ(Step_Text(event), "press Form7.Text3(2)");
}

TEST(KeyNames, CodesAreThoseOfTheKeyboard) {
  EXPECT_EQ(Key_Code("A"), 65);
  EXPECT_EQ(Key_Code("z"), 90);
  EXPECT_EQ(Key_Code("0"), 48);
  EXPECT_EQ(Key_Code("num0"), 96);
  EXPECT_EQ(Key_Code("num9"), 105);
  EXPECT_EQ(Key_Code("F1"), 112);
  EXPECT_EQ(Key_Code("F12"), 123);
  EXPECT_EQ(Key_Code("Escape"), 27);
  EXPECT_EQ(Key_Code("Delete"), 46);
}

TEST(KeyNames, OtherTextsAreNotKeys) {
  for (const char* name : {"", "F0", "F13", "num10", "num", "AB", "code256", "?"}) {
    EXPECT_FALSE(Key_Code(name)) << name;
  }
}

TEST(KeyNames, EveryCodeHasAName) {
  for (int code = 0; code < 256; ++code) EXPECT_EQ(Key_Code(Key_Name(code)), code);
}

}  // namespace
}  // namespace sylvomex
