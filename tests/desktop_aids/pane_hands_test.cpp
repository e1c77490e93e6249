// SPDX-License-Identifier: MIT
// Both cameras of the small site lie at Z 1000, image b 100 m further east. The views begin where
// the adding of the images left them.
#include "aids_fixture.h"
#include "support/session_run.h"

namespace sylvomex {
namespace {

using Hands = AidedDesktop;

TEST_F(Hands, TheWheelZoomsThePaneUnderThePointer) {
  const PaneView before = w().PaneViews(0);
  Wheel(0, 100, 50, 120);
  Expect_View(0, before.ViewCol + 50, before.ViewRow + 25, 2);
  EXPECT_EQ(w().PaneViews(1).ZoomX, 1);
  Wheel(0, 100, 50, -120);
  Expect_View(0, before.ViewCol, before.ViewRow, 1);
}

TEST_F(Hands, TheWheelWithCtrlZoomsAllPanes) {
  Wheel(0, 100, 50, 120, Qt::ControlModifier);
  EXPECT_EQ(w().PaneViews(0).ZoomX, 2);
  EXPECT_EQ(w().PaneViews(1).ZoomX, 2);
}

TEST_F(Hands, AFineWheelTurnsANotchTogether) {
  for (int turn = 0; turn < 3; ++turn) Wheel(0, 100, 50, 30);
  EXPECT_EQ(w().PaneViews(0).ZoomX, 1);
  Wheel(0, 100, 50, 30);
  EXPECT_EQ(w().PaneViews(0).ZoomX, 2);
}

TEST_F(Hands, TheMiddleButtonDragsAPane) {
  const PaneView before = w().PaneViews(0);
  const PaneView other = w().PaneViews(1);
  Drag(0, {200, 200}, {230, 180}, Qt::MiddleButton);
  Expect_View(0, before.ViewCol - 30, before.ViewRow + 20, 1);
  EXPECT_EQ(w().PaneViews(1).ViewCol, other.ViewCol);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// Steps of less than a raw pixel add up: the place that was taken hold of stays under the pointer.
TEST_F(Hands, ADragInSmallStepsLosesNothing) {
  Wheel(0, 0, 0, 120 * 3);
  const PaneView before = w().PaneViews(0);
  QWidget& pane = Pane(0);
  Send_Mouse(pane, QEvent::MouseButtonPress, {102, 102}, Qt::MiddleButton, Qt::MiddleButton);
  for (int step = 1; step <= 16; ++step) {
    Send_Mouse(pane, QEvent::MouseMove, {102.0 - step, 102}, Qt::NoButton, Qt::MiddleButton);
    QApplication::processEvents();
  }
  Send_Mouse(pane, QEvent::MouseButtonRelease, {86, 102}, Qt::MiddleButton, Qt::NoButton);
  Expect_View(0, before.ViewCol + 4, before.ViewRow, 4);
}

TEST_F(Hands, ADragWithShiftTakesTheOtherPanesAlong) {
  const PaneView before = w().PaneViews(1);
  Drag(0, {200, 200}, {230, 180}, Qt::MiddleButton, Qt::ShiftModifier);
  Expect_View(1, before.ViewCol - 30, before.ViewRow + 20, 1);
}

TEST_F(Hands, TheLeftButtonDragsWhileTheSpaceBarIsHeld) {
  Point_At(0, 200, 200);
  const PaneView before = w().PaneViews(0);
  Pane(0).setFocus();
  QTest::keyPress(&Pane(0), Qt::Key_Space);
  Drag(0, {200, 200}, {190, 200}, Qt::LeftButton);
  QTest::keyRelease(&Pane(0), Qt::Key_Space);
  Expect_View(0, before.ViewCol + 10, before.ViewRow, 1);
  EXPECT_EQ(w().Form1.Text1(0).Text, "");
  Drag(0, {200, 200}, {190, 200}, Qt::LeftButton);
  EXPECT_NE(w().Form1.Text1(0).Text, "");  // a click again
}

TEST_F(Hands, AfterTheStartTheSpaceBarDragsAndTicksNothing) {
  Start_Recorded("session.txt");
  Point_At(0, 200, 200);
  const PaneView before = w().PaneViews(0);
  ASSERT_NE(Main().focusWidget(), nullptr);
  QTest::keyPress(Main().focusWidget(), Qt::Key_Space);
  Drag(0, {200, 200}, {190, 200}, Qt::LeftButton);
  QTest::keyRelease(Main().focusWidget(), Qt::Key_Space);
  Expect_View(0, before.ViewCol + 10, before.ViewRow, 1);
  EXPECT_EQ(w().Form1.Check4.Value, 0);
}

TEST_F(Hands, TheSpaceBarInABoxTypes) {
  Point_At(0, 200, 200);
  auto& box = Get<QLineEdit>("Text5");
  box.setFocus();
  box.setCursorPosition(0);
  QTest::keyClick(&box, Qt::Key_Space);
  EXPECT_TRUE(box.text().startsWith(" "));
}

// As where the window manager or a dialog takes the release.
TEST_F(Hands, ADragWhoseReleaseGoesElsewhereEnds) {
  Send_Mouse(Pane(0), QEvent::MouseButtonPress, {202, 202}, Qt::MiddleButton, Qt::MiddleButton);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  const PaneView before = w().PaneViews(0);
  Send_Mouse(Pane(0), QEvent::MouseMove, {252, 232}, Qt::NoButton, Qt::NoButton);
  QApplication::processEvents();
  Expect_View(0, before.ViewCol, before.ViewRow, 1);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  Click_Pane(0, 100, 50);
  EXPECT_NE(w().Form1.Text1(0).Text, "");
}

TEST_F(Hands, AQuestionThatOpensDuringADragEndsIt) {
  Send_Mouse(Pane(0), QEvent::MouseButtonPress, {202, 202}, Qt::MiddleButton, Qt::MiddleButton);
  dialogs_.inputs = {"10", "20", "30"};
  const PaneView before = w().PaneViews(0);
  Choose("Set_3D_solution");
  ASSERT_EQ(w().Solution3D.Z, 30);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  Send_Mouse(Pane(0), QEvent::MouseMove, {252, 232}, Qt::NoButton, Qt::MiddleButton);
  QApplication::processEvents();
  Expect_View(0, before.ViewCol, before.ViewRow, 1);
}

TEST_F(Hands, TheirEndInADragGivesThePointerItsShapeBack) {
  Send_Mouse(Pane(0), QEvent::MouseButtonPress, {202, 202}, Qt::MiddleButton, Qt::MiddleButton);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  aids_.reset();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Hands, AreRecordedAndPlayBackToTheSameBlock) {
  Start_Recorded("session.txt");
  Click_Pane(0, 100, 50);
  Wheel(0, 101, 53, 240);
  Wheel(1, 40, 40, 120, Qt::ControlModifier);
  Drag(0, {200, 200}, {217, 181}, Qt::MiddleButton);
  Drag(1, {200, 200}, {187, 211}, Qt::MiddleButton, Qt::ShiftModifier);
  const PaneView first = w().PaneViews(0);
  const PaneView second = w().PaneViews(1);
  const std::vector<Mark> marks = w().Form1.Picture1(0).marks;
  aids_.reset();
  desktop_.reset();
  const PlayedSession played = Play_Script(
      site_.Folder(), site_.Folder().Read("session.txt") +
                          "print PaneViews(0)\nprint PaneViews(1)\nmarks Picture1(0)\n");
  const auto text = [](const PaneView& view) {
    return std::to_string(view.ViewCol) + " " + std::to_string(view.ViewRow) + " ";
  };
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("PaneViews(0) = " + text(first)), std::string::npos);
  EXPECT_NE(played.transcript.find("PaneViews(1) = " + text(second)), std::string::npos);
  const std::size_t last_view = played.transcript.find("PaneViews(1)");
  const std::string after_views =
      played.transcript.substr(played.transcript.find('\n', last_view) + 1);
  EXPECT_EQ(std::ranges::count(after_views, '\n'), static_cast<std::ptrdiff_t>(marks.size()));
}

}  // namespace
}  // namespace sylvomex
