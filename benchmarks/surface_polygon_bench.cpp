// SPDX-License-Identifier: MIT
// A polygon of 10,100 points with 81 heights each, played by script from the start to the exit:
// loading, searches, boxes, status line, node file and marks (goal 3 s). Two photographs of 3400 x
// 3000 pixels show a plane 7000 m below them, 0.7 m a pixel, so that 20 m between points are 28.6
// pixels and 2000 m fit into the strip of a colour photograph.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench_files.h"
#include "bench_inputs.h"
#include "round_times.h"
#include "session/session.h"

namespace sylvomex::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 3400, kHeight = 3000;
constexpr int kShift = 300;           // columns between the two photographs
constexpr int kLeastAccepted = 9900;  // 100 rows of 101 points; rounding may lose a last one
constexpr double kGroundZ = 445, kFlyingHeight = 7000, kPixel = 0.7;

void Write_Raw(const fs::path& file, int k, int colour) {
  std::string bytes;
  for (int row = 0; row < kHeight; ++row) {
    for (int col = 0; col < kWidth; ++col) {
      const auto grey = static_cast<char>(Value_Noise(5, col + kShift * k, row, 1));
      bytes.append(colour == 1 ? 3 : 1, grey);
    }
  }
  std::ofstream(file, std::ios::binary) << bytes;
}

/// c = 0.1 m, pixels of 10 micrometres, the principal point in the raw file's middle.
std::string Header(int k, int colour, const std::string& raw_name) {
  std::ostringstream text;
  text << 7000 + k << "\n"
       << kWidth << ", " << kHeight << "\n\"" << raw_name << "\"\n"
       << colour << "\n"
       << kWidth / 2 << ", " << kHeight / 2 << "\n0, 0\n"
       << kWidth << ", " << kHeight << "\n0.1\n0,0,0,0,0,0,0,0\n100000, 0, " << kWidth / 2
       << "\n0, 100000, " << kHeight / 2 << "\n0, 0, 0\n"
       << kPixel * kShift * k << ", 0, " << kGroundZ + kFlyingHeight << "\n3, 0.6\n\"plane\"\n0\n";
  return text.str();
}

fs::path Make_Site(int colour) {
  const fs::path site = Data_Folder() / (colour == 1 ? "polygon_colour" : "polygon_grey");
  for (const char* folder : {"c/data/Lehtomaa/Pistedata", "c/temp"}) {
    fs::create_directories(site / folder);
  }
  for (int k = 0; k < 2; ++k) {
    const std::string name = "im" + std::to_string(k);
    Write_Raw(site / ("c/data/" + name + ".raw"), k, colour);
    std::ofstream(site / ("c/data/" + name + ".hdr"))
        << Header(k, colour, "c:\\data\\" + name + ".raw");
  }
  std::ofstream(site / "c/data/IMA_polyline.txt") << "-1,-1\n1,-1\n1,0.0143\n-1,0.0143\n";
  std::ofstream map(site / "c/data/JetColorMAP.csv");
  for (int k = 1; k <= 64; ++k) map << k << ",0," << 255 - k << "\n";
  return site;
}

// The grid's first row, at the start point, lies north of the polygon: the windows of the next one
// lie in the strip.
constexpr const char* kScript =
    "file c:\\data\\im0.hdr\nmenu Add_images_to_set\nfile c:\\data\\im1.hdr\n"
    "menu Add_images_to_set\ninput 0\ninput 0\ninput 445\nmenu Set_3D_solution\n"
    "set Text1(0) -0.0130\nset Text1(1) 0.0144\nmenu Get_Surface_Height_InCdll\n";

void Play(const fs::path& site) {
  std::istringstream in(kScript);
  std::ostringstream out, err;
  SessionOptions options;
  options.script = "-";
  options.root = site;
  if (Run_Session(options, {in, out, err}) != 0) throw std::runtime_error(out.str() + err.str());
}

long Accepted(const fs::path& site) {
  std::ifstream nodes(site / "c/temp/maa.nod");
  return std::count(std::istreambuf_iterator<char>(nodes), {}, '\n');
}

void Time_Polygon(benchmark::State& state, const fs::path& site) {
  RoundTimes times;
  for (auto unused : state) {
    times.Run([&] { Play(site); });
    state.SetIterationTime(times.Last_Seconds());
  }
  const long accepted = Accepted(site);
  if (accepted < kLeastAccepted) state.SkipWithError("too few points");
  state.counters["ms"] = times.Wall();
  state.counters["cpu_ms"] = times.Cpu();
  state.counters["accepted"] = static_cast<double>(accepted);
}

void Register(const char* name, int colour) {
  benchmark::RegisterBenchmark(
      name, [site = Make_Site(colour)](auto& state) { Time_Polygon(state, site); })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(9);
}

}  // namespace
}  // namespace sylvomex::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  try {
    sylvomex::bench::Register("polygon/grey", 0);
    sylvomex::bench::Register("polygon/colour", 1);
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_surface_polygon: %s\n", error.what());
    return 1;
  }
  return 0;
}
