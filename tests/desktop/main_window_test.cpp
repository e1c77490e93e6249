// SPDX-License-Identifier: MIT
#include <QMenuBar>

#include "desktop_fixture.h"

namespace sylvomex {
namespace {

class MainWindow : public DesktopTest {
 protected:
  int Client_Width() { return Main().centralWidget()->width(); }
  int Client_Height() { return Main().centralWidget()->height(); }
};

TEST_F(MainWindow, HasTheTitleAndTheRequestedClientSize) {
  EXPECT_EQ(Main().windowTitle(),
            "SYLVOMEX. 3D measurements with aerial photographs and lidar data.");
  EXPECT_EQ(Client_Width(), 1000);
  EXPECT_EQ(Client_Height(), 700);
}

TEST_F(MainWindow, ShowsOnlyThePanesOfLoadedImages) {
  Add_Two_Images();
  EXPECT_TRUE(Pane(0).isVisible());
  EXPECT_TRUE(Pane(1).isVisible());
  EXPECT_FALSE(Pane(2).isVisible());
  EXPECT_EQ(Get<QCheckBox>("Check1(1)").text(), "Use: 2");
}

// With two images and 1000 by 700 pixels: (1000 - 80) / 2 = 460, a multiple of 4.
TEST_F(MainWindow, PlacesThePanesUnderTheStrip) {
  Add_Two_Images();
  EXPECT_EQ(Pane(0).geometry(), QRect(3, 96, 464, 464));
  EXPECT_EQ(Pane(1).geometry(), QRect(3 + 460 + 3, 96, 464, 464));
}

// (1100 - 80) / 2 = 510, rounded up to a multiple of 4: 510 + (1530 mod 4) = 512.
TEST_F(MainWindow, ResizingLaysThePanesOutAgain) {
  Add_Two_Images();
  Main().resize(Main().size() + QSize(100, 0));
  EXPECT_TRUE(Soon([&] { return int(w().PaneWidth) == 512; }));
  EXPECT_EQ(w().Form1.ClientWidth, 1100);
  EXPECT_EQ(Pane(0).width(), 516);
}

TEST_F(MainWindow, OfManyResizesOnlyTheLastCounts) {
  Add_Two_Images();
  for (int step = 1; step <= 20; ++step) {
    Main().resize(Main().size() + QSize(5, 0));
    QApplication::processEvents();
  }
  EXPECT_TRUE(Soon([&] { return w().Form1.ClientWidth == 1100.0; }));
  EXPECT_EQ(Client_Width(), 1100);
}

TEST_F(MainWindow, KeepsTheStatusLineAndTheBoxesOfTheStripInViewWhenItShrinks) {
  Add_Two_Images();
  w().Form1.ClientWidth = 1600;
  w().Form1.ClientHeight = 900;
  w().screen->Service_Events();
  Main().resize(100, 100);
  QApplication::processEvents();
  const QRect client(QPoint(0, 0), Main().centralWidget()->size());
  for (const char* name : {"Label10", "Label3", "Check5", "Check2(3)", "Text10", "Text4"}) {
    const QWidget& control = Get<QWidget>(name);
    EXPECT_TRUE(client.contains(control.geometry())) << name;
  }
}

TEST_F(MainWindow, TypingGoesIntoTheBlock) {
  auto& box = Get<QLineEdit>("Text4");
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "31.5");
  EXPECT_EQ(w().Form1.Text4.Text, "31.5");
  EXPECT_EQ(box.text(), "31.5");
}

TEST_F(MainWindow, TickingASpeciesUnticksTheOthers) {
  QTest::mouseClick(&Get<QCheckBox>("Check2(1)"), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::mouseClick(&Get<QCheckBox>("Check2(3)"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(w().Form1.Check2(1).Value, 0);
  EXPECT_EQ(w().Form1.Check2(3).Value, 1);
  EXPECT_FALSE(Get<QCheckBox>("Check2(1)").isChecked());
}

TEST_F(MainWindow, LabelsFollowTheBlockAtEveryServicing) {
  w().Form1.Label10.Caption = "half way";
  w().screen->Service_Events();
  EXPECT_EQ(Get<QLabel>("Label10").text(), "half way");
}

TEST_F(MainWindow, PointerIsAnHourglassWhileTheFormSaysSo) {
  w().Form1.MousePointer = PointerShape::Hourglass;
  w().screen->Service_Events();
  EXPECT_EQ(Main().cursor().shape(), Qt::WaitCursor);
  w().Form1.MousePointer = PointerShape::Normal;
  w().screen->Service_Events();
  EXPECT_EQ(Main().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MainWindow, MovingOverTheBackgroundShowsTheKeyHint) {
  QTest::mouseMove(Main().centralWidget(), QPoint(900, 80));
  EXPECT_TRUE(Soon([&] {
    return Get<QLabel>("Label3").text() ==
           QString("Press \"U\" for Up, \"D\" down, \"E\" East etc.");
  }));
}

TEST_F(MainWindow, MovingOverDcrownShowsItsHint) {
  QTest::mouseMove(&Get<QCheckBox>("MeasureDistancesCheckBox"), QPoint(8, 8));
  EXPECT_TRUE(Soon(
      [&] { return Get<QLabel>("Label3").text() == QString("Swap between 3D and 2D modes"); }));
}

TEST_F(MainWindow, ClosingAsksAndCancelKeepsIt) {
  dialogs_.choice = QMessageBox::Cancel;
  Main().close();
  EXPECT_EQ(dialogs_.messages, std::vector<std::string>{"Do you wish to exit?"});
  EXPECT_EQ(dialogs_.titles, std::vector<std::string>{"3D-measurements"});
  EXPECT_TRUE(Main().isVisible());
  EXPECT_EQ(ends_, 0);
}

TEST_F(MainWindow, ClosingAndOkEndsTheProgram) {
  Main().close();
  EXPECT_EQ(ends_, 1);
}

TEST_F(MainWindow, NothingIsHandledAfterTheEnd) {
  Main().close();
  Choose("Draw_Polygon");
  EXPECT_FALSE(w().Menu.Draw_Polygon);
}

TEST_F(MainWindow, CommandCanStartInsideAnotherOnesEventServicing) {
  bool chosen = false;
  QTimer::singleShot(0, &Main(), [&] {
    chosen = true;
    Choose("Draw_Polygon");
  });
  Add_Two_Images();
  EXPECT_TRUE(chosen);
  EXPECT_TRUE(w().Menu.Draw_Polygon);
  EXPECT_EQ(w().ImageCount, 2);
}

}  // namespace
}  // namespace sylvomex
