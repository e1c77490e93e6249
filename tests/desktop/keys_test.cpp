// SPDX-License-Identifier: MIT
#include "desktop/key_codes.h"
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

int Code(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  return Event_Key_Code(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

TEST(KeyCodes, LettersAndDigitsAreTheirCharacters) {
  EXPECT_EQ(Code(Qt::Key_U), 'U');
  EXPECT_EQ(Code(Qt::Key_4), '4');
}

TEST(KeyCodes, KeyPadAndFunctionKeysHaveCodesOfTheirOwn) {
  EXPECT_EQ(Code(Qt::Key_0, Qt::KeypadModifier), 96);
  EXPECT_EQ(Code(Qt::Key_4, Qt::KeypadModifier), 100);
  EXPECT_EQ(Code(Qt::Key_F1), 112);
  EXPECT_EQ(Code(Qt::Key_F12), 123);
  EXPECT_EQ(Code(Qt::Key_Period, Qt::KeypadModifier), 110);
  EXPECT_EQ(Code(Qt::Key_Period), 190);
}

TEST(KeyCodes, EnterTabAndModifiersHaveNoKeyCode) {
  EXPECT_EQ(Code(Qt::Key_Return), 0);
  EXPECT_EQ(Code(Qt::Key_Enter, Qt::KeypadModifier), 0);
  EXPECT_EQ(Code(Qt::Key_Tab), 0);
  EXPECT_EQ(Code(Qt::Key_Shift, Qt::ShiftModifier), 0);
}

using Keys = DesktopTest;

TEST_F(Keys, MoveTheSolutionByOneStep) {
  Press_Key(Qt::Key_U);
  Press_Key(Qt::Key_U);
  Press_Key(Qt::Key_E);
  EXPECT_EQ(w().Solution3D.Z, 2.0);
  EXPECT_EQ(w().Solution3D.X, 1.0);
  EXPECT_EQ(Get<QLabel>("Label10").text(), "Solution moved as E pressed by 1 meters");
}

TEST_F(Keys, MoveTheSolutionWithTheFocusInATextBoxTooAndAreTyped) {
  auto& box = Get<QLineEdit>("Text4");
  box.setFocus();
  box.selectAll();
  Press_Key(Qt::Key_D);
  EXPECT_EQ(w().Solution3D.Z, -1.0);
  EXPECT_EQ(box.text().toLower(), "d");
  EXPECT_EQ(w().Form1.Text4.Text, box.text().toStdString());
}

TEST_F(Keys, KeyPadFourPicksTheFourthSpeciesAndMovesDown) {
  Press_Key(Qt::Key_4, Qt::KeypadModifier);
  EXPECT_TRUE(Get<QCheckBox>("Check2(3)").isChecked());
  EXPECT_EQ(w().Solution3D.Z, -1.0);
}

TEST_F(Keys, ShiftWithALetterDoesNothing) {
  Press_Key(Qt::Key_U, Qt::ShiftModifier);
  EXPECT_EQ(w().Solution3D.Z, 0.0);
}

TEST_F(Keys, CtrlIRunsTheIntersection) {
  Press_Key(Qt::Key_I, Qt::ControlModifier);
  EXPECT_EQ(dialogs_.messages,
            std::vector<std::string>{"At least two images are needed for stereo restitution!"});
  EXPECT_EQ(Get<QLabel>("Label10").text(), "Could not compute ray intersection for < 2 images");
}

TEST_F(Keys, MenuKeyIsNotTypedIntoTheTextBoxWithTheFocus) {
  auto& box = Get<QLineEdit>("Text4");
  box.setFocus();
  Press_Key(Qt::Key_A, Qt::ControlModifier);  // clears the observations
  EXPECT_FALSE(box.hasSelectedText());
}

TEST_F(Keys, FunctionKeyOpensNothingWhenItsItemIsGreyed) {
  Press_Key(Qt::Key_F1, Qt::ShiftModifier);  // Plot_Circular_Plot
  EXPECT_TRUE(dialogs_.titles.empty());
}

}  // namespace
}  // namespace sylvomex
