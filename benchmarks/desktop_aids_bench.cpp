// SPDX-License-Identifier: MIT
// The hand on six panes of 600 x 600 pixels with 100,000 marks, in an offscreen window. Goals: the
// next frame after a drag or a turn of the wheel within 16 ms, the magnifier within 8 ms; the table
// of measured points with 100,000 lines.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <optional>
#include <random>

#include "commands/imageblock/image_set.h"
#include "desktop_aids/aids.h"
#include "offscreen_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kImages = 6;
constexpr int kMarks = 100000;  // over all panes
constexpr int kLines = 100000;
const QSize kClient(2040, 1340);  // gives panes of 600 pixels

class Hand {
 public:
  Hand() : desktop_({site_.Drives(), kClient, {}, [] {}}) {
    desktop_.Start();
    aids_.emplace(desktop_);
    for (int k = 0; k < kImages; ++k) {
      SmallImage image;
      image.id = k + 1;
      image.width = image.height = 3000;
      image.start_col = image.start_row = 1500;
      const std::string name = "image" + std::to_string(k);
      Add_Image_By_Name(desktop_.Block(), site_.Drives().Locate(site_.Write_Image(name, image)));
    }
    Draw_Marks();
    Show();
  }

  void Show() {
    desktop_.Block().screen->Service_Events();
    QApplication::processEvents();
  }

  /// One event and the frame that follows.
  void Send(OperatorEvent::Kind kind, const QPointF& at, int notches, int shift) {
    OperatorEvent event = AidedPanes::Event_On(kind, 0, at);
    event.notches = notches;
    event.shift = shift;
    desktop_.Dispatch(event);
    QApplication::processEvents();
  }

  Magnifier& Locked_Magnifier() {
    QWidget* pane = desktop_.Shown().Main().Control_Widget("Picture1(0)");
    QCursor::setPos(pane->mapToGlobal(QPoint(300, 300)));
    pane->setFocus();
    QTest::keyClick(pane, Magnifier::kKey);
    return aids_->Glass();
  }

  const SmallSite& Site() { return site_; }
  const Workspace& Block() { return desktop_.Block(); }

 private:
  void Draw_Marks() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> away(0, desktop_.Block().PaneWidth);
    for (int mark = 0; mark < kMarks; ++mark) {
      Picture& pane = desktop_.Block().Form1.Picture1(mark % kImages);
      pane.DrawWidth = 3;
      Plot_Point(pane, away(random), away(random), {0, 255, 0});
    }
  }

  SmallSite site_;
  Desktop desktop_;
  std::optional<Aids> aids_;
};

void Drag_Panes(benchmark::State& state) {
  Hand hand;
  double way = 8;
  for (auto _ : state) {
    hand.Send(OperatorEvent::Kind::Pan, {way, way / 2}, 0, state.range(0) != 0 ? kShift : 0);
    way = -way;
  }
}
BENCHMARK(Drag_Panes)->ArgName("all")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Turn_Wheel(benchmark::State& state) {
  Hand hand;
  int notches = 1;
  for (auto _ : state) {
    hand.Send(OperatorEvent::Kind::Wheel, {300, 200}, notches, state.range(0) != 0 ? kCtrl : 0);
    notches = -notches;
  }
}
BENCHMARK(Turn_Wheel)->ArgName("all")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Magnify_At_Pointer(benchmark::State& state) {
  Hand hand;
  Magnifier& magnifier = hand.Locked_Magnifier();
  for (auto _ : state) {
    magnifier.Refresh();
    magnifier.repaint();
  }
}
BENCHMARK(Magnify_At_Pointer)->Unit(benchmark::kMillisecond);

void Read_Measured_Lines(benchmark::State& state) {
  Hand hand;
  std::string lines;
  for (int k = 0; k < kLines; ++k) {
    lines += std::to_string(k) + ",2515056.12,6860037.50,176.98,158.10,7.25,2,0,2," +
             std::string(30, ' ') + ",1,2,12786.500,7580.250,12055.000,12455.125,\n";
  }
  hand.Site().Folder().Write("c/data/Lehtomaa/Pistedata/PointData.txt", lines);
  for (auto _ : state) {
    MeasuredModel model(hand.Block());
    model.Refresh();
    if (model.rowCount() != kLines) state.SkipWithError("not all lines were read");
  }
}
BENCHMARK(Read_Measured_Lines)->Unit(benchmark::kMillisecond);

void Filter_Measured_Lines(benchmark::State& state) {
  Hand hand;
  std::string lines;
  for (int k = 0; k < kLines; ++k) {
    lines += std::to_string(k) + ",2515056.12,6860037.50,176.98,158.10,7.25,2,0,0," +
             std::string(30, ' ') + ",\n";
  }
  hand.Site().Folder().Write("c/data/Lehtomaa/Pistedata/PointData.txt", lines);
  MeasuredModel model(hand.Block());
  model.Refresh();
  for (auto _ : state) {
    model.Filter("999");
    model.sort(MeasuredModel::Rmse, Qt::DescendingOrder);
  }
}
BENCHMARK(Filter_Measured_Lines)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sylvomex

int main(int argc, char** argv) { return sylvomex::bench::Run_Without_Display(argc, argv); }
