// SPDX-License-Identifier: MIT
// The desktop with six images and 200,000 overlay dots on each pane, in an offscreen window
// of 1280 x 1024 pixels. Goals: response to a pointer move within 16 ms, redraw after a
// zoom within 100 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <memory>
#include <random>

#include "commands/imageblock/image_set.h"
#include "desktop/desktop.h"
#include "offscreen_run.h"
#include "panes/pane_zoom.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kImages = 6;
constexpr int kDots = 200000;

class SixImages {
 public:
  SixImages() : desktop_({site_.Drives(), QSize(1280, 1024), {}, [] {}}) {
    desktop_.Start();
    for (int k = 0; k < kImages; ++k) {
      SmallImage image;
      image.id = k + 1;
      Add_Image_By_Name(Block(), site_.Drives().Locate(site_.Write_Image(Name(k), image)));
      Block().Form1.Text1(2 * k).Text = "0";
      Block().Form1.Text1(2 * k + 1).Text = "0";
    }
    Show();
  }

  Workspace& Block() { return desktop_.Block(); }

  /// As at the end of a command: copies the records to the widgets and paints them.
  void Show() {
    Block().screen->Service_Events();
    QApplication::processEvents();
  }

  void Draw_Dots() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> away(0, Block().PaneWidth);
    for (int k = 0; k < kImages; ++k) {
      Picture& pane = Block().Form1.Picture1(k);
      pane.DrawWidth = 3;
      for (int dot = 0; dot < kDots; ++dot) {
        const auto level = static_cast<std::uint8_t>(dot % 256);
        Plot_Point(pane, away(random), away(random), {level, 255, level});
      }
    }
  }

  void Erase_Dots() {
    for (int k = 0; k < kImages; ++k) Erase_Marks(Block().Form1.Picture1(k));
  }

  /// Moves the pointer and waits for the new position above the pane.
  void Move_Pointer(double px, double py) {
    const std::string before = Block().Form1.Label1(0).Caption;
    QWidget* pane = desktop_.Shown().Main().Control_Widget("Picture1(0)");
    QMouseEvent move(QEvent::MouseMove, QPointF(px, py), pane->mapToGlobal(QPointF(px, py)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(pane, &move);
    while (Block().Form1.Label1(0).Caption == before) QApplication::processEvents();
    QApplication::processEvents();
  }

 private:
  static std::string Name(int k) { return "image" + std::to_string(k); }

  SmallSite site_;
  Desktop desktop_;
};

void Draw_Overlay(benchmark::State& state) {
  SixImages desk;
  for (auto _ : state) {
    state.PauseTiming();
    desk.Erase_Dots();
    desk.Show();
    state.ResumeTiming();
    desk.Draw_Dots();
    desk.Show();
  }
}
BENCHMARK(Draw_Overlay)->Unit(benchmark::kMillisecond);

void Pointer_Move(benchmark::State& state) {
  SixImages desk;
  desk.Draw_Dots();
  desk.Show();
  double at = 10;
  for (auto _ : state) {
    desk.Move_Pointer(at, 100);
    at = at < 200 ? at + 1 : 10;
  }
}
BENCHMARK(Pointer_Move)->Unit(benchmark::kMillisecond);

void Zoom_And_Redraw(benchmark::State& state) {
  SixImages desk;
  bool near = false;
  for (auto _ : state) {
    state.PauseTiming();
    desk.Draw_Dots();
    desk.Show();
    near = !near;
    state.ResumeTiming();
    Zoom_All_Images(desk.Block(), near ? 2.0 : 1.0);
    desk.Show();
  }
}
BENCHMARK(Zoom_And_Redraw)->Unit(benchmark::kMillisecond);

/// Repaints the dots after a change of the picture, as when a window grows.
void Repaint_Dots(benchmark::State& state) {
  SixImages desk;
  desk.Draw_Dots();
  desk.Show();
  for (auto _ : state) {
    for (int k = 0; k < kImages; ++k) ++desk.Block().Form1.Picture1(k).erase_version;
    desk.Show();
  }
}
BENCHMARK(Repaint_Dots)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sylvomex

int main(int argc, char** argv) { return sylvomex::bench::Run_Without_Display(argc, argv); }
