// SPDX-License-Identifier: MIT
// Commands that service events after every step of a long loop.
#include <QTimer>

#include "desktop_fixture.h"
#include "heightmodels/tin_model.h"

namespace sylvomex {
namespace {

class UpdateCounter : public QObject {
 public:
  int updates = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::UpdateRequest) ++updates;
    return QObject::eventFilter(watched, event);
  }
};

class LongCommand : public DesktopTest {
 protected:
  static constexpr int kTriangles = 20000;

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
};

TEST_F(LongCommand, IsShownFromTimeToTimeAndNotAtEveryStep) {
  UpdateCounter counter;
  Main().installEventFilter(&counter);
  Choose("TIN2RASTER_Fast");
  EXPECT_GT(counter.updates, 0);
  EXPECT_LT(counter.updates, kTriangles / 4);
  EXPECT_EQ(Get<QLabel>("Label10").text(), QString::number(kTriangles - 1));
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
