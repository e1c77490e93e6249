// SPDX-License-Identifier: MIT
// Commands that service events after every step of a long loop.
#include <QTimer>
#include <chrono>
#include <set>

#include "desktop_fixture.h"
#include "heightmodels/tin_model.h"

namespace sylvomex {
namespace {

class LongCommand : public DesktopTest {
 protected:
  static constexpr int kTriangles = 2000;

  /// The same small triangle many times: rasterizing services events after each.
  LongCommand() {
    site_.Folder().Make_Folder("c/temp");
    TinTriangle triangle;
    EXPECT_TRUE(Fill_Tin_Triangle({0, 30, 30, 300}, {0, 32, 30, 300}, {0, 30, 32, 300}, triangle));
    TinModel& model = w().TinDem;
    model.Triangles.assign(kTriangles, triangle);
    model.TriangleCount = kTriangles;
    model.TileMaxX = model.TileMaxY = 100;
  }

  /// Runs the command with a clock that goes on by so much at every step; returns at how many of
  /// the steps events were serviced.
  int Servicings_With(std::chrono::microseconds step) {
    std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now();
    desktop_->Dialogs().Use_Clock([&] { return now += step; });
    std::set<std::string> steps;
    QTimer at_each;
    QObject::connect(&at_each, &QTimer::timeout, [&] { steps.insert(w().Form1.Label10.Caption); });
    at_each.start(0);
    Choose("TIN2RASTER_Fast");
    EXPECT_EQ(Get<QLabel>("Label10").text(), QString::number(kTriangles - 1));
    return static_cast<int>(steps.size());
  }
};

// 20 servicings within 16 milliseconds.
TEST_F(LongCommand, ThatStepsFastIsNotShownAtEveryStep) {
  const int servicings = Servicings_With(std::chrono::microseconds(160));  // 100 steps a span
  EXPECT_GT(servicings, kTriangles / 6);
  EXPECT_LT(servicings, kTriangles / 4);
}

TEST_F(LongCommand, ThatStepsSlowlyIsShownAtEveryStep) {
  EXPECT_GT(Servicings_With(std::chrono::milliseconds(1)), kTriangles * 9 / 10);
}

TEST_F(LongCommand, RunsEventsBeforeItEnds) {
  std::string seen;
  QTimer::singleShot(0, &Main(), [&] { seen = w().Form1.Label10.Caption; });
  Choose("TIN2RASTER_Fast");
  EXPECT_NE(seen, "");
  EXPECT_NE(seen, std::to_string(kTriangles - 1));
}

}  // namespace
}  // namespace sylvomex
