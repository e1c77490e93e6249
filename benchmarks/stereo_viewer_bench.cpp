// SPDX-License-Identifier: MIT
// The anaglyph viewer with a picture of 1600 x 1200 pixels of a colour pair, in a window without a
// screen. Goals: a pointer move to the new mark and label within 5 ms, a recentring within 15 ms,
// each with the painting of the window.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>

#include "commands/stereo/stereo_pointer.h"
#include "commands/stereo/stereo_window.h"
#include "desktop/desktop.h"
#include "offscreen_run.h"
#include "stereo/level_pair.h"
#include "stereo/pair_file.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kWidth = 6000, kHeight = 4000;

class Viewer {
 public:
  Viewer() : desktop_({site_.Drives(), QSize(1280, 1024), {}, [] {}}) {
    Write_Pair();
    desktop_.Start();
    Workspace& w = Block();
    w.Form5.ClientWidth = 1650;
    w.Form5.ClientHeight = 1230;
    Open_Stereo_window(w);
    w.Stereo.Pair = pair_;
    w.Stereo.PairOpen = true;
    w.Stereo.StereoSolution = pair_.start;
    Form5_Resize(w);
    Show();
  }

  Workspace& Block() { return desktop_.Block(); }

  /// What a handler's end does: the widgets take over the records and are painted.
  void Show() {
    Block().screen->Service_Events();
    QApplication::processEvents();
  }

  /// Until the label tells the new mark.
  void Move_Pointer(double px, double py) {
    const std::string before = Block().Form5.Label1.Caption;
    QWidget* picture = desktop_.Shown().Find("Form5")->Control_Widget("Picture1");
    QMouseEvent move(QEvent::MouseMove, QPointF(px, py), picture->mapToGlobal(QPointF(px, py)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &move);
    while (Block().Form5.Label1.Caption == before) QApplication::processEvents();
    QApplication::processEvents();
  }

 private:
  void Write_Pair() {
    pair_ = Level_Pair();
    pair_.ColorMode = 1;
    pair_.NormalWidth = kWidth;
    pair_.NormalHeight = kHeight;
    pair_.Xmin = -0.03;
    pair_.Ymax = 0.02;
    std::string raster(3 * std::size_t{kWidth} * kHeight, '\0');
    for (std::size_t k = 0; k < raster.size(); ++k) raster[k] = static_cast<char>(k * 31 % 251);
    site_.Folder().Write("c/data/left.raw", raster);
    site_.Folder().Write("c/data/right.raw", raster);
  }

  SmallSite site_;
  StereoPair pair_;
  Desktop desktop_;
};

void Pointer_Move(benchmark::State& state) {
  Viewer viewer;
  double at = 300;
  for (auto _ : state) {
    viewer.Move_Pointer(at, 400);
    at = at < 1200 ? at + 1 : 300;
  }
}
BENCHMARK(Pointer_Move)->Unit(benchmark::kMillisecond);

void Recentring(benchmark::State& state) {
  Viewer viewer;
  double at = 0;
  for (auto _ : state) {
    state.PauseTiming();
    viewer.Move_Pointer(790 + at, 600);
    at = at < 20 ? at + 1 : 0;
    state.ResumeTiming();
    Form5_Picture1_DblClick(viewer.Block());
    viewer.Show();
  }
}
BENCHMARK(Recentring)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sylvomex

int main(int argc, char** argv) { return sylvomex::bench::Run_Without_Display(argc, argv); }
