// SPDX-License-Identifier: MIT
// A LAS file of 20 million echoes, 2.4 a pulse, imported into the tiles of a fresh site: seconds,
// the echoes a second, and the largest memory of the process. lidar_import_numpy.py reads the same
// file into arrays.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <vector>

#include "bench_files.h"
#include "interchange/lidar_import.h"
#include "interchange/site.h"

namespace sylvomex::bench {
namespace {

constexpr std::uint64_t kEchoes = 20'000'000;
constexpr std::size_t kHeader = 375, kPoint = 30;

template <class Value>
void Put(std::vector<char>& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

std::vector<char> Header() {
  std::vector<char> h(kHeader);
  std::memcpy(h.data(), "LASF", 4);
  h[24] = 1;
  h[25] = 4;
  Put(h, 94, static_cast<std::uint16_t>(kHeader));
  Put(h, 96, static_cast<std::uint32_t>(kHeader));
  h[104] = 6;
  Put(h, 105, static_cast<std::uint16_t>(kPoint));
  const double place[] = {0.001, 0.001, 0.001, 384000, 6675000, 0};
  std::memcpy(h.data() + 131, place, sizeof place);
  Put(h, 247, kEchoes);
  return h;
}

/// Strips over 2 km x 2 km; every five pulses have 1, 2, 2, 3 and 4 echoes.
void Write_Las(const std::filesystem::path& file) {
  static constexpr int kReturns[] = {1, 2, 2, 3, 4};
  std::FILE* const out = std::fopen(file.c_str(), "wb");
  const std::vector<char> header = Header();
  std::fwrite(header.data(), 1, header.size(), out);
  std::mt19937 random(1);
  std::vector<char> point(kPoint);
  for (std::uint64_t echo = 0, pulse = 0; echo < kEchoes; ++pulse) {
    const int returns = kReturns[pulse % 5];
    const auto X = static_cast<std::int32_t>(random() % 2'000'000);
    for (int number = 1; number <= returns && echo < kEchoes; ++number, ++echo) {
      Put(point, 0, X + 100 * number);
      Put(point, 4, static_cast<std::int32_t>(pulse * 2'000'000 / (kEchoes / 2)));
      Put(point, 8, 180'000 - 3000 * number);
      Put(point, 12, static_cast<std::uint16_t>(random() % 3000));
      point[14] = static_cast<char>(number + 16 * returns);
      Put(point, 22, 200'000 + 5e-6 * static_cast<double>(pulse));
      std::fwrite(point.data(), 1, point.size(), out);
    }
  }
  std::fclose(out);
}

void Import(benchmark::State& state) {
  const std::filesystem::path folder = std::filesystem::path(Data_Folder()) / "lidar_import";
  const std::filesystem::path las = folder / "echoes.las";
  std::filesystem::create_directories(folder);
  if (!std::filesystem::exists(las)) Write_Las(las);
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove_all(folder / "site");
    Init_Site(folder / "site", "EPSG:3067");
    state.ResumeTiming();
    ImportTransaction transaction(folder / "site");
    LidarImport import;
    import.files = {las};
    import.flying_height = 1000;
    benchmark::DoNotOptimize(Import_Lidar(transaction, import));
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["MB"] = static_cast<double>(usage.ru_maxrss) / 1000;
  state.counters["echoes"] = benchmark::Counter(static_cast<double>(kEchoes),
                                                benchmark::Counter::kIsIterationInvariantRate);
  std::filesystem::remove_all(folder / "site");
}
BENCHMARK(Import)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
