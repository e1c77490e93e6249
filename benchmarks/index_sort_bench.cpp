// SPDX-License-Identifier: MIT
// Index sort of 1,000,000 scores. Goals on the reference machine: 4 ms on one thread, 2.5 on two.
// Peers: std::sort and std::stable_sort of indices.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "closedlib/index_sort.h"
#include "matching_inputs.h"

namespace sylvomex {
namespace {

constexpr std::size_t kCount = 1000000;

/// Argument: threads (0 for all).
void Index_Sort(benchmark::State& state) {
  const std::vector<float> scores = bench::Scores(kCount);
  std::vector<std::int32_t> index(scores.size());
  for (auto _ : state) MYFUNC_INDEXX(scores, index, static_cast<int>(state.range(0)));
}
BENCHMARK(Index_Sort)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

template <class Sort>
void Library_Sort(benchmark::State& state, const Sort& sort) {
  const std::vector<float> scores = bench::Scores(kCount);
  std::vector<std::int32_t> index(kCount);
  const auto below = [&](std::int32_t a, std::int32_t b) {
    return scores[static_cast<std::size_t>(a)] < scores[static_cast<std::size_t>(b)];
  };
  for (auto _ : state) {
    std::iota(index.begin(), index.end(), 1);
    sort(index.begin(), index.end(), below);
    benchmark::ClobberMemory();
  }
}

void Standard_Sort(benchmark::State& state) {
  Library_Sort(state, [](auto... a) { std::sort(a...); });
}
BENCHMARK(Standard_Sort)->Unit(benchmark::kMillisecond)->UseRealTime();

void Standard_Stable_Sort(benchmark::State& state) {
  Library_Sort(state, [](auto... a) { std::stable_sort(a...); });
}
BENCHMARK(Standard_Stable_Sort)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace sylvomex
