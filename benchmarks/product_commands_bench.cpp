// SPDX-License-Identifier: MIT
// Whole commands of the image products, the viewer and the map, without a window: Orto of 10,000 x
// 10,000 colour cells (goal 2.5 s on two cores, the output and 100 MB beside it), OrthoBlock of
// 20,000 x 20,000 (goal 300 MB of own memory), a click on a map of 30,000 x 30,000 pixels (goal 15
// ms), recentring the viewer at 1600 x 1200 (goal 15 ms) and its pointer (goal 5 ms).
//
// Frame and map, 3 GB, are made once. "own_MB" is the most memory that lay in no file, looked at
// whenever events were serviced.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <random>

#include "bench_files.h"
#include "bench_inputs.h"
#include "commands/mapview/map_window.h"
#include "commands/products/ortho_block.h"
#include "commands/products/orthoimage.h"
#include "commands/stereo/stereo_pointer.h"
#include "commands/stereo/stereo_window.h"
#include "platform/number_text.h"
#include "relief_model.h"
#include "round_times.h"
#include "solver/camera_model.h"
#include "state/workspace.h"
#include "stereo/level_pair.h"
#include "support/recording_screen.h"

namespace sylvomex::bench {
namespace {

constexpr int kFrameWidth = 7500, kFrameHeight = 11500;
constexpr int kMapSide = 30000;
constexpr int kModelSide = 2401;
constexpr double kEast = 2515000, kNorth = 6859000;

/// Memory of the process that lies in no file.
double Own_MB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("RssAnon:")) return std::stod(line.substr(8)) / 1024;
  }
  return 0;
}

class Site {
 public:
  Site() : root_(Data_Folder() / "product_commands") {
    std::filesystem::create_directories(root_ / "c" / "data");
    std::filesystem::create_directories(root_ / "f");
    Link(Frame_File("frame_7500.raw", kFrameWidth, kFrameHeight, 72), "frame.raw");
    screen.on_service = [this] {
      if (screen.servicings % 100 == 0) own_MB = std::max(own_MB, Own_MB());
    };
  }

  void Link(const std::filesystem::path& file, const char* name) const {
    const auto link = root_ / "c" / "data" / name;
    if (!std::filesystem::exists(link))
      std::filesystem::create_symlink(std::filesystem::absolute(file), link);
  }

  [[nodiscard]] std::filesystem::path Data(const char* name) const {
    return root_ / "c" / "data" / name;
  }

  void Answer(std::initializer_list<double> numbers, const std::string& name) {
    for (const double number : numbers) screen.inputs.emplace_back(Full_Text(number));
    screen.inputs.emplace_back(name);
  }

  RecordingScreen screen;
  double own_MB = 0;

 private:
  std::filesystem::path root_;

 public:
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(DriveMap(root_), screen);
  Workspace& w = *block;
};

/// A slightly tilted photograph from 1200 m above the ground, pixels of 0.11 m.
void Add_Photograph(Workspace& w, double east, double north) {
  ImageRecord& record = w.ImageBlock(w.ImageCount++);
  record.ImageId = w.ImageCount;
  record.ColorFlag = 1;
  record.FullWidth = record.SubWidth = kFrameWidth;
  record.FullHeight = record.SubHeight = kFrameHeight;
  record.PrincipalDistance = 0.1;
  record.AffineA1 = record.AffineB2 = 1 / 9e-6;
  record.AffineA0 = 3750;
  record.AffineB0 = 5749;
  record.Omega = 0.01;
  record.Phi = -0.008;
  record.Kappa = 0.02;
  record.X0 = kEast + east;
  record.Y0 = kNorth + north;
  record.Z0 = 1365;
  record.RawFileName = "c:\\data\\frame.raw";
  w.RotationTable(w.ImageCount - 1) = Build_Rotation_Matrix(record.Omega, record.Phi, record.Kappa);
}

/// A ground model of 1 m cells, 25 m of relief.
void Load_Model(Workspace& w) {
  w.RasterDem = Relief_Model(kEast - 1200, kNorth - 1200, kModelSide);
  w.RasterDemLoaded = true;
}

void Report(benchmark::State& state, const Site& site, const RoundTimes& times, const char* file) {
  state.counters["ms"] = times.Wall();
  state.counters["own_MB"] = site.own_MB;
  state.counters["file_MB"] =
      static_cast<double>(std::filesystem::file_size(site.Data(file))) / 1e6;
  if (!site.screen.errors.empty()) state.SkipWithError(site.screen.errors.back().c_str());
  std::filesystem::remove(site.Data(file));
}

void Orthoimage_10000(benchmark::State& state) {
  Site site;
  Add_Photograph(site.w, 0, 0);
  Load_Model(site.w);
  RoundTimes times;
  for (auto _ : state) {
    site.Answer({0, kEast - 360, kNorth - 360, 719.928, 719.928, 0.072, 160},
                "c:\\data\\ortho.raw");
    times.Run([&] { Orto(site.w); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, site, times, "ortho.raw");
}
BENCHMARK(Orthoimage_10000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void Ortho_Block_20000(benchmark::State& state) {
  Site site;
  for (const double north : {-500, 500}) {
    for (const double east : {-700, 0, 700}) Add_Photograph(site.w, east, north);
  }
  Load_Model(site.w);
  RoundTimes times;
  for (auto _ : state) {
    site.Answer({kEast - 1000, kNorth - 1000, 1999.9, 1999.9, 0.1}, "c:\\data\\block.raw");
    times.Run([&] { OrthoBlock(site.w); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, site, times, "block.raw");
}
BENCHMARK(Ortho_Block_20000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

/// A click that recentres, in a pane of 1276 x 967 pixels; the argument: map pixels a pane pixel.
void Map_Click(benchmark::State& state) {
  Site site;
  site.Link(Frame_File("map_30000.raw", kMapSide, kMapSide, 73), "map.raw");
  std::ofstream(site.Data("map.hdr")) << "\"c:\\data\\map.raw\"\n0\n0\n1\n1\n30000\n30000\n1\n";
  Workspace& w = site.w;
  Open_Map_Window(w);
  w.Form8.ClientWidth = 1280;
  w.Form8.ClientHeight = 971;
  Form8_Resize(w);
  site.screen.files.emplace_back("c:\\data\\map.hdr");
  Open_a_Map(w);
  std::mt19937 random(5);
  std::uniform_int_distribution<int> col(3000, kMapSide - 22000), row(3000, kMapSide - 3000);
  RoundTimes times;
  for (auto _ : state) {
    w.Map.View.MapZoom = 1;
    w.Map.View.MapFirstCol = col(random);
    w.Map.View.MapFirstRow = row(random);
    Form8_Picture1_MouseDown(w, 0, 0, 0);  // a part of the map that is not in the caches
    w.Map.View.MapZoom = 1 / static_cast<double>(state.range(0));
    times.Run([&] { Form8_Picture1_MouseDown(w, 0, 600, 400); });
    state.SetIterationTime(times.Last_Seconds());
  }
  state.counters["ms"] = times.Wall();
}
BENCHMARK(Map_Click)
    ->ArgName("out")
    ->Arg(1)
    ->Arg(2)
    ->Arg(8)
    ->Arg(16)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(25);

/// A colour pair of 6000 x 4000 pixels in a picture of 1600 x 1200.
void Open_Viewer(Site& site) {
  constexpr int kWidth = 6000, kHeight = 4000;
  std::string raster(std::size_t{3} * kWidth * kHeight, '\0');
  for (std::size_t k = 0; k < raster.size(); ++k) raster[k] = static_cast<char>(k * 31 % 251);
  for (const char* name : {"left.raw", "right.raw"}) {
    std::ofstream(site.Data(name), std::ios::binary) << raster;
  }
  StereoPair pair = Level_Pair();
  pair.ColorMode = 1;
  pair.NormalWidth = kWidth;
  pair.NormalHeight = kHeight;
  pair.Xmin = -0.03;
  pair.Ymax = 0.02;
  Workspace& w = site.w;
  w.Form5.ClientWidth = 1650;
  w.Form5.ClientHeight = 1230;
  Open_Stereo_window(w);
  w.Stereo.Pair = pair;
  w.Stereo.PairOpen = true;
  w.Stereo.StereoSolution = pair.start;
  Form5_Resize(w);
}

void Viewer_Pointer(benchmark::State& state) {
  Site site;
  Open_Viewer(site);
  double at = 300;
  std::string before;
  for (auto _ : state) {
    Form5_Picture1_MouseMove(site.w, at, 400);
    if (site.w.Form5.Label1.Caption == before) state.SkipWithError("the label stays");
    before = site.w.Form5.Label1.Caption;
    at = at < 1200 ? at + 1 : 300;
  }
}
BENCHMARK(Viewer_Pointer)->Unit(benchmark::kMillisecond);

void Viewer_Recentring(benchmark::State& state) {
  Site site;
  Open_Viewer(site);
  double at = 0;
  for (auto _ : state) {
    Form5_Picture1_MouseMove(site.w, 790 + at, 600);
    Form5_Picture1_DblClick(site.w);
    at = at < 20 ? at + 1 : 0;
  }
}
BENCHMARK(Viewer_Recentring)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
