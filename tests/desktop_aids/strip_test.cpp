// SPDX-License-Identifier: MIT
// The strip below the panes, by real keys and mouse.
#include "desktop_aids/strip.h"

#include <QScreen>

#include "aids_fixture.h"
#include "desktop_aids/control_names.h"
#include "platform/guest_files.h"

namespace sylvomex {
namespace {

class StripTest : public DesktopTest {
 protected:
  StripTest() {
    desktop_ = std::make_unique<Desktop>(
        DesktopOptions{site_.Drives(), QSize(1276, 700), {}, [] {}, false});
    desktop_->Start();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Main(), 60000));
    Add_Two_Images();
    aids_.emplace(*desktop_);
  }

  QPushButton& Button(const char* name) { return *Main().findChild<QPushButton*>(name); }
  QString Text(const char* name) { return Main().findChild<QLabel*>(name)->text(); }
  void Move_Over(int pane, double px, double py) {
    QWidget& widget = Pane(pane);
    const QPointF at(px + kPictureBorder, py + kPictureBorder);
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    QApplication::processEvents();
  }

  std::optional<Aids> aids_;
};

TEST_F(StripTest, TheClientAreaKeepsItsSize) {
  EXPECT_EQ(w().Form1.ClientWidth, 1276);
  EXPECT_EQ(w().Form1.ClientHeight, 700);
  EXPECT_EQ(Main().centralWidget()->size(), QSize(1276, 700));
  EXPECT_EQ(Main().height(), 700 + Main().Menu_Height() + aids_->Below().height());
}

TEST_F(StripTest, ASizeSetByTheOperatorLeavesRoomForTheStrip) {
  Main().resize(1300, 800);
  ASSERT_TRUE(Soon([&] { return w().Form1.ClientWidth == 1300; }));
  EXPECT_EQ(w().Form1.ClientHeight, 800 - Main().Menu_Height() - aids_->Below().height());
}

TEST_F(StripTest, AltBackspaceTakesTheClickBackAndShiftDoesItAgain) {
  Click_Pane(1, 50, 60);
  ASSERT_EQ(w().Form1.Check1(1).Value, 1);
  EXPECT_EQ(Button("Undo").text(), "Undo: Click in image 1");
  Press_Key(Qt::Key_Backspace, Qt::AltModifier);
  EXPECT_EQ(w().Form1.Check1(1).Value, 0);
  EXPECT_EQ(w().Form1.Text1(2).Text, "");
  EXPECT_EQ(Button("Redo").text(), "Redo: Click in image 1");
  EXPECT_EQ(Text("StripMessage"), "Undone: Click in image 1");
  Press_Key(Qt::Key_Backspace, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_EQ(w().Form1.Check1(1).Value, 1);
}

TEST_F(StripTest, WhileACommandRunsItTellsWhyNothingIsUndone) {
  Click_Pane(1, 50, 60);
  dialogs_.inputs = {"not a number"};
  bool asked = false;
  dialogs_.when_asked = [&](QDialog&) {
    if (!std::exchange(asked, true)) Button("Undo").click();
  };
  Choose("Set_3D_solution");
  ASSERT_TRUE(asked);
  EXPECT_EQ(w().Form1.Check1(1).Value, 1);
  EXPECT_EQ(Text("StripMessage"),
            "A command is running: it has to end before anything is undone or redone");
}

TEST_F(StripTest, TheKeysWorkInABox) {
  auto& box = Get<QLineEdit>("Text4");
  box.setFocus();
  box.end(false);
  QTest::keyClicks(&box, "7");
  ASSERT_EQ(w().Form1.Text4.Text, "237");
  QTest::keyClick(&box, Qt::Key_Backspace, Qt::AltModifier);
  EXPECT_EQ(w().Form1.Text4.Text, "23");
  EXPECT_EQ(box.text(), "23");
}

TEST_F(StripTest, ButtonsUndoAndSayWithTheirToolTip) {
  Click_Pane(0, 50, 60);
  EXPECT_TRUE(Button("Undo").toolTip().contains("Click in image 0"));
  EXPECT_TRUE(Button("Undo").toolTip().contains("Alt+Backspace"));
  QTest::mouseClick(&Button("Undo"), Qt::LeftButton);
  EXPECT_EQ(w().Form1.Check1(0).Value, 0);
  EXPECT_EQ(Button("Redo").text(), "Redo: Click in image 0");
}

TEST_F(StripTest, ErasedMarksArePaintedAgain) {
  Click_Pane(0, 50, 60);
  const QImage before = Pane(0).Painted().copy();
  Click_Pane(0, 80, 20);
  ASSERT_NE(Pane(0).Painted(), before);
  Press_Key(Qt::Key_Backspace, Qt::AltModifier);
  EXPECT_EQ(Pane(0).Painted(), before);
}

TEST_F(StripTest, ASavedLineIsToldAndTakenBackByItsButton) {
  EXPECT_FALSE(Button("TakeBackLine").isEnabled());
  Click_Pane(0, 200, 60);
  Click_Pane(1, 100, 60);
  Choose("Point_Intersection");
  Choose("Save_measured_point");
  QTest::mouseClick(&Get<QPushButton>("Accept_And_Save_Button", "Form3"), Qt::LeftButton);
  EXPECT_EQ(w().NextMeasurementNumber, 2);
  EXPECT_EQ(Text("StripMessage"), "1 line added to c:\\data\\Lehtomaa\\Pistedata\\PointData.txt");
  EXPECT_TRUE(Button("TakeBackLine").toolTip().contains("PointData.txt: 1,"));
  EXPECT_EQ(Button("TakeBackLine").text(), "Take back line 1");
  QTest::mouseClick(&Button("TakeBackLine"), Qt::LeftButton);
  EXPECT_EQ(w().NextMeasurementNumber, 1);
  EXPECT_TRUE(Text("StripMessage").startsWith("Line taken back from"));
  EXPECT_FALSE(Button("TakeBackLine").isEnabled());
}

TEST_F(StripTest, StepsAreToldByWhatTheOperatorSees) {
  auto& box = Get<QLineEdit>("Text5");
  box.setFocus();
  QTest::keyClicks(&box, "7");
  EXPECT_EQ(Button("Undo").toolTip().section("  (", 0, 0), "Undo: Tw");
  Choose("Open_Map_Window");
  QTest::mouseClick(&Get<PictureWidget>("Picture1", "Form8"), Qt::LeftButton);
  EXPECT_FALSE(Button("Undo").toolTip().contains("Form8"))
      << Button("Undo").toolTip().toStdString();
}

TEST(SeenWords, HaveLabelsAndTitlesInPlaceOfNames) {
  SmallSite site;
  Desktop desktop(DesktopOptions{site.Drives(), QSize(1276, 700), {}, [] {}, false});
  desktop.Start();
  const Aids aids(desktop);
  const Windows& shown = desktop.Shown();
  EXPECT_EQ(Seen_Words(shown, "Form2.Text1 (2 times)"), "Z-depth of epipolar line , m (2 times)");
  EXPECT_EQ(Seen_Words(shown, "Click in Form8"), "Click in SYLVOMEX MAP window");
  EXPECT_EQ(Seen_Words(shown, "Check4"), "Esc");
  EXPECT_EQ(Seen_Words(shown, "Clear images"), "Clear images");
  EXPECT_EQ(Seen_Words(shown, ""), "");
}

// As wide as a screen of 1280 pixels at twice the size.
TEST_F(StripTest, InANarrowWindowTheButtonsLeaveRoomForWords) {
  Main().setMinimumSize(1, 1);
  Main().resize(640, 480);
  QApplication::processEvents();
  const int narrow = Button("TakeBackLine").width();
  EXPECT_LE(Button("TakeBackLine").mapTo(&Main(), QPoint(narrow, 0)).x(), 400);
  for (const char* name : {"Undo", "Redo", "TakeBackLine"}) {
    const QPushButton& button = Button(name);
    EXPECT_LT(button.fontMetrics().horizontalAdvance(button.text()), button.width()) << name;
  }
  EXPECT_EQ(Button("Undo").width(), Button("Redo").width());
  Main().resize(1800, 480);
  QApplication::processEvents();
  EXPECT_GT(Button("Undo").width(), 280) << "for longer texts";
}

// As wide as the window of a screen of 1280 pixels.
TEST_F(StripTest, AStepWithALongNameIsToldToItsLastWord) {
  dialogs_.inputs = {"10", "20", "30"};
  Choose("Set_3D_solution");
  EXPECT_TRUE(Button("Undo").text().startsWith("Undo: Set 3D-solution to a given XYZ"))
      << Button("Undo").text().toStdString();
  EXPECT_TRUE(Button("Undo").toolTip().startsWith("Undo: Set 3D-solution to a given XYZ (Query)"));
}

TEST_F(StripTest, InAVeryNarrowWindowAButtonHasItsNameAlone) {
  Click_Pane(0, 50, 60);
  Main().setMinimumSize(1, 1);
  Main().resize(300, 300);
  QApplication::processEvents();
  EXPECT_EQ(Button("Undo").text(), "Undo");
  EXPECT_EQ(Button("Undo").toolTip().section("  (", 0, 0), "Undo: Click in image 0");
}

TEST_F(StripTest, TheActiveModeIsTold) {
  Choose("Draw_Polygon");
  EXPECT_TRUE(Text("StripMode").startsWith("Drawing a polygon"));
  Choose("Draw_Polygon");
  EXPECT_EQ(Text("StripMode"), "");
}

TEST_F(StripTest, ADesktopThatOnlyReadsItsRootSaysSo) {
  const GuestFiles guest(w().Drives.Root(), GuestAccess::ReadsOnly);
  Choose("Draw_Polygon");
  EXPECT_TRUE(Text("StripMode").startsWith("Only shown; Drawing a polygon"))
      << Text("StripMode").toStdString();
  Choose("Draw_Polygon");
  EXPECT_EQ(Text("StripMode"), "Only shown, nothing is written");
}

// The view's middle lies below the camera at (0, 0), a pixel is 0.1 m.
TEST_F(StripTest, ThePlaceUnderThePointerIsToldWithoutItsEdgeCutOff) {
  w().SolutionValid = true;
  w().Solution3D = {0, 0, 0};
  const PaneView& view = w().PaneViews(0);
  Move_Over(0, 510 - view.ViewCol, 500 - view.ViewRow);
  EXPECT_TRUE(Text("StripPlace").startsWith("X 1.00  Y 0.00  Z 0.00 m"))
      << Text("StripPlace").toStdString();
  const auto& label = *Main().findChild<QLabel*>("StripPlace");
  EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
}

// Where no window manager fits the window to the screen.
TEST(StartedOnTheScreen, ThereIsRoomForTheStrip) {
  SmallSite site;
  Desktop desktop(DesktopOptions{site.Drives(), std::nullopt, {}, [] {}, false});
  desktop.Start();
  FormWindow& window = desktop.Shown().Main();
  const double client = desktop.Block().Form1.ClientHeight;
  Aids aids(desktop);
  EXPECT_LE(client + window.Menu_Height() + aids.Below().height(),
            window.screen()->availableGeometry().height());
}

TEST(FittingLabel, ShowsTheFullestWordingThatFits) {
  FittingLabel label;
  label.resize(label.fontMetrics().horizontalAdvance("12.3") + 1, 20);
  label.Show_Words({"12.345", "12.3", "12"});
  EXPECT_EQ(label.text(), "12.3");
  label.resize(2, 20);
  label.show();
  EXPECT_EQ(label.text(), "");
}

TEST(PlainDesktop, HasNoStripAndNoHistory) {
  SmallSite site;
  Desktop desktop(DesktopOptions{site.Drives(), QSize(1276, 700), {}, [] {}, true});
  desktop.Start();
  EXPECT_EQ(desktop.Kept(), nullptr);
  EXPECT_EQ(desktop.Shown().Main().findChild<QStatusBar*>(), nullptr);
}

}  // namespace
}  // namespace sylvomex
