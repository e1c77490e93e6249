// SPDX-License-Identifier: MIT
// What the aids cost a movement of the pointer and an event: the place under the pointer over a
// triangulated model of 300,000 triangles, and a step of the history with 100,000 marks on a pane.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <sstream>

#include "history/history.h"
#include "services/pointer_place.h"
#include "session/script_screen.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace {

using namespace sylvomex;

constexpr int kSide = 388;  // nodes; 2 x 387 x 387 triangles

struct Block {
  std::ostringstream transcript, log;
  ScriptScreen screen{transcript, log};
  std::unique_ptr<Workspace> w = std::make_unique<Workspace>(DriveMap("/nowhere"), screen);

  Block() {
    ImageRecord& image = w->ImageBlock(0);
    image.FullWidth = image.FullHeight = 1000;
    image.SubWidth = image.SubHeight = 1000;
    image.PrincipalDistance = 0.1;
    image.AffineA1 = image.AffineB2 = 100000;
    image.AffineA0 = image.AffineB0 = 500;
    image.Omega = 0.02;
    image.X0 = image.Y0 = kSide / 2.0;
    image.Z0 = 1000;
    w->ImageCount = 1;
    Build_Rotation_Matrix(*w, 0);
    w->PaneViews(0) = {0, 0, 600, 600, 1, 1};
  }
};

void Lay_Hills(TinModel& model) {
  for (int row = 0; row < kSide; ++row) {
    for (int col = 0; col < kSide; ++col) {
      model.Nodes.push_back(
          {0, double(col), double(row), 150 + 20 * std::sin(col / 9.0) + row / 8.0});
    }
  }
  model.NodeCount = kSide * kSide;
  const auto add = [&](int a, int b, int c) {
    TinTriangle triangle;
    triangle.Node1 = a;
    triangle.Node2 = b;
    triangle.Node3 = c;
    const auto node = [&](int k) { return model.Nodes[static_cast<std::size_t>(k)]; };
    if (Fill_Tin_Triangle(node(a), node(b), node(c), triangle)) model.Triangles.push_back(triangle);
  };
  for (int row = 0; row + 1 < kSide; ++row) {
    for (int col = 0; col + 1 < kSide; ++col) {
      const int corner = row * kSide + col;
      add(corner, corner + 1, corner + kSide);
      add(corner + 1, corner + kSide + 1, corner + kSide);
    }
  }
  model.TriangleCount = static_cast<std::int32_t>(model.Triangles.size());
  Index_Tin(model, {});
}

void Place_Under_The_Pointer(benchmark::State& state) {
  Block block;
  Lay_Hills(block.w->TinDem);
  Lay_Hills(block.w->TinChm);
  block.w->TinDemLoaded = true;
  int found = 0;
  int step = 0;
  for (auto _ : state) {
    ++step;
    const auto place = Place_Under_Pointer(*block.w, 0, step * 7 % 600, step * 11 % 600);
    if (place && place->on_ground) ++found;
    if (place) benchmark::DoNotOptimize(Place_Words(*place));
  }
  state.counters["triangles"] = block.w->TinDem.TriangleCount;
  state.counters["on_ground"] = static_cast<double>(found) / step;
}
BENCHMARK(Place_Under_The_Pointer)->Unit(benchmark::kMicrosecond);

void Step_Of_The_History(benchmark::State& state) {
  Block block;
  Workspace& w = *block.w;
  for (int i = 0; i < state.range(0); ++i) Plot_Point(w.Form1.Picture1(0), i % 600, i / 600, {});
  History history;
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Set;
  event.control = "Text4";
  int step = 0;
  for (auto _ : state) {
    history.Before(w, event);
    w.Form1.Text4.Text = std::to_string(++step);
    history.After(w);
  }
}
BENCHMARK(Step_Of_The_History)->Arg(0)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
