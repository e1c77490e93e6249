// SPDX-License-Identifier: MIT
#include "desktop_aids/magnifier.h"

#include <QDockWidget>

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class Glass : public AidedDesktop {
 protected:
  void Press_Down() { QTest::keyPress(&Pane(0), Magnifier::kKey); }
  void Let_Go() { QTest::keyRelease(&Pane(0), Magnifier::kKey); }

  /// The key as the window system tells of it.
  static void Send_Key(QWidget& to, QEvent::Type type, quint64 milliseconds) {
    QKeyEvent event(type, Magnifier::kKey, Qt::NoModifier, QStringLiteral("g"));
    event.setTimestamp(milliseconds);
    QApplication::sendEvent(&to, &event);
  }

  void Lock_At(int pane, double px, double py) {
    Point_At(pane, px, py);
    Pane(0).setFocus();
    Press_Down();
    Let_Go();
    ASSERT_TRUE(Magnifying().Is_Locked());
  }

  Magnifier& Magnifying() { return aids_->Glass(); }

  /// A place inside the square, from its middle.
  static QPointF From_Middle(double dx, double dy) {
    constexpr double kMiddle = Magnifier::kSide / 2.0 + Magnifier::kFrame;
    return {kMiddle + dx, kMiddle + dy};
  }
};

TEST_F(Glass, IsThereWhileItsKeyIsHeld) {
  Point_At(0, 150, 140);
  Pane(0).setFocus();
  EXPECT_FALSE(Magnifying().isVisible());
  Send_Key(Pane(0), QEvent::KeyPress, 70'000);
  EXPECT_TRUE(Magnifying().isVisible());
  Send_Key(Pane(0), QEvent::KeyRelease, 70'250);
  EXPECT_FALSE(Magnifying().isVisible());
  EXPECT_FALSE(Magnifying().Is_Locked());
  Send_Key(Pane(0), QEvent::KeyPress, 80'000);
  Send_Key(Pane(0), QEvent::KeyRelease, 80'249);
  EXPECT_TRUE(Magnifying().Is_Locked());
}

TEST_F(Glass, ATapLocksItAndAnotherTapOrEscapeEndsIt) {
  Lock_At(0, 150, 140);
  EXPECT_TRUE(Magnifying().isVisible());
  Press_Down();
  Let_Go();
  EXPECT_FALSE(Magnifying().isVisible());
  Lock_At(0, 150, 140);
  QTest::keyClick(&Pane(0), Qt::Key_Escape);
  EXPECT_FALSE(Magnifying().isVisible());
}

// At 1:1 and 8x a magnifier pixel is an eighth of a pane pixel: 3 to the right are 0.375.
TEST_F(Glass, AClickInItMeasuresAFractionOfAPixel) {
  Lock_At(0, 150, 140);
  Send_Mouse(Magnifying(), QEvent::MouseButtonPress, From_Middle(3, -2), Qt::LeftButton,
             Qt::LeftButton);
  const PaneView& view = w().PaneViews(0);
  const double x = (view.ViewCol + 150.375 - 500) * 1e-5;
  const double y = (1000 - (view.ViewRow + 139.75) - 500) * 1e-5;
  EXPECT_NEAR(std::stod(w().Form1.Text1(0).Text), x, 0.51e-7);
  EXPECT_NEAR(std::stod(w().Form1.Text1(1).Text), y, 0.51e-7);
  EXPECT_TRUE(Magnifying().isVisible());
}

TEST_F(Glass, EscapeEndsItWhileATickHasTheFocus) {
  Lock_At(0, 150, 140);
  Get<QCheckBox>("Check4").setFocus();
  QTest::keyClick(Main().focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(Magnifying().isVisible());
  EXPECT_EQ(Main().focusWidget()->objectName(), "client");
}

TEST_F(Glass, EscapeEndsItAfterAClickInIt) {
  Lock_At(0, 150, 140);
  QTest::mouseClick(&Magnifying(), Qt::LeftButton, {}, From_Middle(10, 0).toPoint());
  QTest::keyClick(Main().focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(Magnifying().isVisible());
}

// A pixel is 0.1 m: 4 magnifier pixels at 8x are 0.05 m.
TEST_F(Glass, ThePlaceUnderItsCrossIsToldBelowThePanes) {
  w().SolutionValid = true;
  w().Solution3D = {0, 0, 0};
  Lock_At(0, 150, 140);
  const auto told_X = [&](double dx) {
    Send_Mouse(Magnifying(), QEvent::MouseMove, From_Middle(dx, 0), Qt::NoButton, Qt::NoButton);
    double X = 0;
    const std::string words = Main().findChild<QLabel*>("StripPlace")->text().toStdString();
    EXPECT_EQ(std::sscanf(words.c_str(), "X %lf", &X), 1) << words;
    return X;
  };
  const double X = told_X(0);
  EXPECT_NEAR(told_X(40) - X, 0.5, 0.011);
  EXPECT_NEAR(told_X(80) - X, 1.0, 0.011);
}

// As on a screen that is smaller than the window's boxes.
TEST_F(Glass, StandsInSightWhereTheWindowScrolls) {
  Main().Scroll_On_Small_Screens();
  Main().setMinimumSize(1, 1);
  Main().resize(600, 520);
  QApplication::processEvents();
  ASSERT_GT(Pane(0).parentWidget()->width(), 600);
  const int to_edge = 560 - Pane(1).mapTo(&Main(), QPoint(0, 0)).x();
  ASSERT_GT(to_edge, 0);
  ASSERT_LT(to_edge, w().PaneWidth);
  Lock_At(1, to_edge, 100);
  const QWidget& seen = *Main().centralWidget();
  const QPoint at = Magnifying().mapTo(&seen, QPoint(0, 0));
  EXPECT_GE(at.x(), 0);
  EXPECT_LE(at.x() + Magnifying().width(), seen.width());
  EXPECT_GE(at.y(), 0);
  EXPECT_LE(at.y() + Magnifying().height(), seen.height());
}

// The dock takes the room below: panes and what is in sight become smaller.
TEST_F(Glass, StaysInSightOverItsPlaceWhenADockOpens) {
  const double low = 260;
  Lock_At(0, 200, low);
  ASSERT_LT(low, w().PaneWidth);
  const int before = Main().centralWidget()->height();
  const QPoint beside_cross = From_Middle(2, 2).toPoint();
  const QRgb raw_pixel = Magnifying().grab().toImage().pixel(beside_cross);
  Main().findChild<QDockWidget*>("MeasuredDock")->toggleViewAction()->trigger();
  ASSERT_TRUE(Soon([&] { return Main().centralWidget()->height() < before - 100; }));
  QApplication::processEvents();
  ASSERT_TRUE(Magnifying().isVisible());
  const QWidget& seen = *Main().centralWidget();
  const QRect glass(Magnifying().mapTo(&seen, QPoint(0, 0)), Magnifying().size());
  EXPECT_TRUE(seen.rect().contains(glass)) << glass.bottom() << " of " << seen.height();
  EXPECT_EQ(Magnifying().grab().toImage().pixel(beside_cross), raw_pixel);
}

// With a scale factor of 2 the position in the widget is rounded to pixels of the window, the one
// in the window is not: 2.5 pixels at 8x are 0.3125.
TEST_F(Glass, AClickBetweenTwoPixelsOfTheWindowKeepsItsFraction) {
  Lock_At(0, 150, 140);
  const QPointF at = From_Middle(2.5, 0);
  const QPointF in_window = at + Magnifying().mapTo(&Main(), QPoint(0, 0));
  QMouseEvent press(QEvent::MouseButtonPress, at.toPoint(), in_window,
                    Magnifying().mapToGlobal(at.toPoint()), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&Magnifying(), &press);
  const double x = (w().PaneViews(0).ViewCol + 150.3125 - 500) * 1e-5;
  EXPECT_NEAR(std::stod(w().Form1.Text1(0).Text), x, 0.51e-7);
}

TEST_F(Glass, TheWheelInItChoosesTheFactor) {
  Lock_At(0, 150, 140);
  const auto turn = [&](int eighths) {
    const QPointF at = From_Middle(0, 0);
    QWheelEvent event(at, Magnifying().mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Magnifying(), &event);
  };
  EXPECT_EQ(Magnifying().Factor(), 8);
  for (int k = 0; k < 5; ++k) turn(120);
  EXPECT_EQ(Magnifying().Factor(), 16);
  for (int k = 0; k < 9; ++k) turn(-120);
  EXPECT_EQ(Magnifying().Factor(), 4);
  EXPECT_EQ(w().PaneViews(0).ZoomX, 1);
}

// SmallSite: red is the raw column mod 251; the cross leaves the middle free.
TEST_F(Glass, ShowsRawPixelsWithAFreeMiddle) {
  Lock_At(0, 150, 140);
  const QImage shown = Magnifying().grab().toImage();
  const int col = w().PaneViews(0).ViewCol + 150;
  const int row = w().PaneViews(0).ViewRow + 140;
  EXPECT_EQ(shown.pixel(From_Middle(2, 2).toPoint()), qRgb(col % 251, row % 241, 7));
  EXPECT_EQ(shown.pixel(From_Middle(-2, 2).toPoint()), qRgb((col - 1) % 251, row % 241, 7));
  EXPECT_NE(shown.pixel(From_Middle(12, 0).toPoint()), qRgb((col + 1) % 251, row % 241, 7));
}

// Lines between two pixels would be half as bright.
TEST_F(Glass, ItsCrossIsBrightWithADarkEdge) {
  Lock_At(0, 150, 140);
  const QImage shown = Magnifying().grab().toImage();
  EXPECT_EQ(shown.pixel(From_Middle(12, 0).toPoint()), qRgb(255, 230, 0));
  EXPECT_EQ(shown.pixel(From_Middle(0, -12).toPoint()), qRgb(255, 230, 0));
  EXPECT_EQ(shown.pixel(From_Middle(12, 1).toPoint()), qRgb(0, 0, 0));
}

TEST_F(Glass, ItsKeyInABoxTypes) {
  Point_At(0, 150, 140);
  auto& box = Get<QLineEdit>("Text5");
  box.setFocus();
  box.setCursorPosition(0);
  QTest::keyClick(&box, Magnifier::kKey);
  EXPECT_TRUE(box.text().startsWith("g"));
  EXPECT_FALSE(Magnifying().isVisible());
}

TEST_F(Glass, ItsKeyWorksAtOnceAfterTheStartAndBesideATickWithTheFocus) {
  Start_Recorded("session.txt");
  Point_At(0, 150, 140);
  for (const bool is_on_tick : {false, true}) {
    if (is_on_tick) Get<QCheckBox>("Check4").setFocus();
    ASSERT_NE(Main().focusWidget(), nullptr);
    Send_Key(*Main().focusWidget(), QEvent::KeyPress, 1000);
    EXPECT_TRUE(Magnifying().isVisible()) << is_on_tick;
    Send_Key(*Main().focusWidget(), QEvent::KeyRelease, 1300);
    EXPECT_FALSE(Magnifying().isVisible());
  }
}

TEST_F(Glass, ItsKeyReachesNoCommand) {
  Start_Recorded("session.txt");
  Lock_At(0, 150, 140);
  Press_Down();
  Let_Go();
  EXPECT_EQ(site_.Folder().Read("session.txt").find("key G"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
