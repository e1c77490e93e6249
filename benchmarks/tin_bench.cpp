// SPDX-License-Identifier: MIT
// Heights from a triangulated model of about 200,000 triangles (Delaunay where CGAL is available)
// at a million points, random and in scan order, and the cost of a load and a rasterization.
//
// With a peer, rounds of ours and of the peer alternate in the same run: "ms" and "peer_ms" are
// their medians, "ratio" is peer time / our time. The same in processor time ("cpu_...") is more
// reliable on a machine with other load.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <exception>
#include <numeric>
#include <string>

#include "heightmodels/tin_lookup.h"
#include "heightmodels/tin_raster.h"
#include "round_times.h"
#include "tin_inputs.h"
#include "tin_peers.h"

namespace sylvomex::bench {
namespace {

/// The lattice's squares split along one diagonal.
std::vector<TinTriple> Lattice_Triples() {
  std::vector<TinTriple> triples;
  for (std::int32_t row = 0; row + 1 < kNodesALine; ++row) {
    for (std::int32_t col = 0; col + 1 < kNodesALine; ++col) {
      const std::int32_t a = row * kNodesALine + col, c = a + kNodesALine;
      triples.push_back({a, a + 1, c + 1});
      triples.push_back({a, c + 1, c});
    }
  }
  return triples;
}

TinModel Model_Of(std::vector<TinNode> nodes, const std::vector<TinTriple>& triples) {
  TinModel model;
  model.Nodes = std::move(nodes);
  model.NodeCount = static_cast<std::int32_t>(model.Nodes.size());
  for (const TinTriple& n : triples) {
    const auto node = [&](std::size_t k) { return model.Nodes[static_cast<std::size_t>(n[k])]; };
    TinTriangle t;
    t.Node1 = n[0], t.Node2 = n[1], t.Node3 = n[2];
    if (Fill_Tin_Triangle(node(0), node(1), node(2), t)) model.Triangles.push_back(t);
  }
  model.TriangleCount = static_cast<std::int32_t>(model.Triangles.size());
  model.TileMinX = kTinX, model.TileMaxX = kTinX + kTinSide + 100;
  model.TileMinY = kTinY, model.TileMaxY = kTinY + kTinSide + 100;
  Index_Tin(model, {});
  return model;
}

struct Inputs {
  TinModel model;
  std::vector<MapPoint> random = Random_Places();
  std::vector<MapPoint> scan = Scan_Places();
};

double Sum(const std::vector<double>& heights) {
  return std::accumulate(heights.begin(), heights.end(), 0.0);
}

void Report(benchmark::State& state, const RoundTimes& times, double checksum) {
  state.counters["ms"] = times.Wall();
  state.counters["cpu_ms"] = times.Cpu();
  state.counters["places/s"] = 1000 * static_cast<double>(kPlaces) / times.Wall();
  state.counters["checksum"] = checksum;
}

template <class Round>
void Time_Round(benchmark::State& state, const Round& round) {
  round();
  RoundTimes times;
  for (auto unused : state) {
    times.Run(round);
    state.SetIterationTime(times.Last_Seconds());
  }
  state.counters["ms"] = times.Wall();
  state.counters["cpu_ms"] = times.Cpu();
}

void Time_Lookups(benchmark::State& state, const TinModel& model,
                  const std::vector<MapPoint>& places, int threads) {
  std::vector<double> heights(places.size());
  RoundTimes times;
  for (auto unused : state) {
    times.Run([&] { Tin_Elevations(model, places, heights, threads); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times, Sum(heights));
}

/// One lookup at a time, as the commands make them.
void Time_Calls(benchmark::State& state, const TinModel& model, const std::vector<MapPoint>& places,
                bool keep_hint) {
  double sum = 0;
  RoundTimes times;
  for (auto unused : state) {
    times.Run([&] {
      sum = 0;
      std::int32_t hint = 0;
      for (const MapPoint& p : places) {
        if (!keep_hint) hint = 0;
        sum += Tin_Elevation(model, p.X, p.Y, hint);
      }
    });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times, sum);
}

void Time_Beside(benchmark::State& state, const TinModel& model,
                 const std::vector<MapPoint>& places, const TinAnswers& peer, int threads) {
  std::vector<double> heights(places.size()), peer_heights(places.size());
  RoundTimes times, peer_times;
  for (auto unused : state) {
    times.Run([&] { Tin_Elevations(model, places, heights, threads == 1 ? 1 : 0); });
    peer_times.Run([&] { peer(places, peer_heights); });
    state.SetIterationTime(times.Last_Seconds());
  }
  Report(state, times, Sum(heights));
  if (std::abs(Sum(heights) - Sum(peer_heights)) > 2e-3 * static_cast<double>(kPlaces)) {
    state.SkipWithError("the peer's heights differ");
  }
  state.counters["peer_ms"] = peer_times.Wall();
  state.counters["peer_cpu_ms"] = peer_times.Cpu();
  state.counters["ratio"] = peer_times.Wall() / times.Wall();
  state.counters["cpu_ratio"] = peer_times.Cpu() / times.Cpu();
}

/// Heights shifted into the range of the grey values.
void Time_Raster(benchmark::State& state, TinModel model) {
  for (TinNode& node : model.Nodes) node.Z += 140;
  for (TinTriangle& t : model.Triangles) {
    const auto node = [&](std::int32_t n) { return model.Nodes[static_cast<std::size_t>(n)]; };
    Fill_Tin_Triangle(node(t.Node1), node(t.Node2), node(t.Node3), t);
  }
  Time_Round(state, [&] {
    TinRaster raster = Make_Tin_Raster(model);
    for (const TinTriangle& t : model.Triangles) Rasterize_Triangle(t, raster);
    benchmark::DoNotOptimize(raster.greys.data());
  });
}

template <class Run>
void Register(const std::string& name, Run&& run) {
  benchmark::RegisterBenchmark(name.c_str(), std::forward<Run>(run))
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(11);
}

void Register_Index(const TinModel& model) {
  Register("tin/index/all", [&](auto& state) {
    TinModel copy = model;
    Time_Round(state, [&] { Index_Tin(copy, {}); });
  });
  Register("tin/index/buckets", [&](auto& state) {
    Time_Round(state, [&] { benchmark::DoNotOptimize(Make_Tin_Buckets(model.Triangles).columns); });
  });
  Register("tin/index/faces", [&](auto& state) {
    Time_Round(state, [&] {
      benchmark::DoNotOptimize(Make_Tin_Faces(model.Triangles, model.NodeCount).columns);
    });
  });
}

void Register_Lookups(const std::string& order, const TinModel& model,
                      const std::vector<MapPoint>& places, const std::vector<TinPeer>& peers,
                      TinAnswers TinPeer::*answers) {
  const std::string name = "tin/" + order;
  for (const int threads : {1, 0}) {
    Register(name + (threads == 1 ? "/1_thread" : "/all_threads"),
             [&, threads](auto& state) { Time_Lookups(state, model, places, threads); });
  }
  Register(name + "/calls", [&](auto& state) { Time_Calls(state, model, places, false); });
  Register(name + "/calls_with_hint", [&](auto& state) { Time_Calls(state, model, places, true); });
  for (const TinPeer& peer : peers) {
    Register(name + "/beside_" + peer.name + "_" + std::to_string(peer.threads),
             [&, answers](auto& state) {
               Time_Beside(state, model, places, peer.*answers, peer.threads);
             });
  }
}

TinPeers Find_Peers(const std::vector<TinNode>& nodes) {
  TinPeers found;
#ifdef SYLVOMEX_BENCH_CGAL
  found = Cgal_Tin(nodes);
#endif
  if (found.triples.empty()) found.triples = Lattice_Triples();
#ifdef SYLVOMEX_BENCH_EMBREE
  for (const TinPeer& peer : Embree_Tin(nodes, found.triples)) found.peers.push_back(peer);
#endif
  return found;
}

}  // namespace
}  // namespace sylvomex::bench

int main(int argc, char** argv) {
  using namespace sylvomex;
  using namespace sylvomex::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  try {
    const std::vector<TinNode> nodes = Tin_Nodes();
    const TinPeers peers = Find_Peers(nodes);
    const Inputs inputs{Model_Of(nodes, peers.triples)};
    Register_Lookups("random", inputs.model, inputs.random, peers.peers, &TinPeer::random);
    Register_Lookups("scan", inputs.model, inputs.scan, peers.peers, &TinPeer::scan);
    Register_Index(inputs.model);
    Register("tin/raster", [&](auto& state) { Time_Raster(state, inputs.model); });
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_tin: %s\n", error.what());
    return 1;
  }
  return 0;
}
