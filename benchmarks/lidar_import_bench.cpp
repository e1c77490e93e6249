// SPDX-License-Identifier: MIT
// A LAS file of 20 million echoes, 2.4 a pulse, imported into the tiles of a fresh site, in the
// order of its times and shuffled: seconds, the echoes a second, and the largest memory of the
// process (goal: 2.5 times the time in which NumPy reads the file into arrays, or less; where NumPy
// is installed, it takes turns with ours, and "ratio" is that of the least times of both).
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
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

/// Flight lines over 2 km x 2 km, with scan angles; every five pulses have 1, 2, 2, 3 and 4 echoes.
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
      Put(point, 18, static_cast<std::int16_t>((X - 1'000'000) / 400));
      Put(point, 20, static_cast<std::uint16_t>(1 + pulse / 1'000'000));
      Put(point, 22, 200'000 + 5e-6 * static_cast<double>(pulse));
      std::fwrite(point.data(), 1, point.size(), out);
    }
  }
  std::fclose(out);
}

/// The same points in another order.
void Write_Shuffled(const std::filesystem::path& ordered, const std::filesystem::path& file) {
  std::vector<char> bytes(std::filesystem::file_size(ordered));
  std::FILE* const in = std::fopen(ordered.c_str(), "rb");
  if (std::fread(bytes.data(), 1, bytes.size(), in) != bytes.size()) std::abort();
  std::fclose(in);
  std::mt19937_64 random(2);
  std::vector<char> held(kPoint);
  for (std::uint64_t i = kEchoes - 1; i > 0; --i) {
    char* const one = bytes.data() + kHeader + i * kPoint;
    char* const other = bytes.data() + kHeader + random() % (i + 1) * kPoint;
    std::memcpy(held.data(), one, kPoint);
    std::memmove(one, other, kPoint);
    std::memcpy(other, held.data(), kPoint);
  }
  std::FILE* const out = std::fopen(file.c_str(), "wb");
  std::fwrite(bytes.data(), 1, bytes.size(), out);
  std::fclose(out);
}

std::filesystem::path Las_File(const std::filesystem::path& folder, bool is_shuffled) {
  std::filesystem::create_directories(folder);
  const std::filesystem::path ordered = folder / "echoes.las", shuffled = folder / "shuffled.las";
  if (!std::filesystem::exists(ordered)) Write_Las(ordered);
  if (is_shuffled && !std::filesystem::exists(shuffled)) Write_Shuffled(ordered, shuffled);
  return is_shuffled ? shuffled : ordered;
}

/// Seconds that NumPy takes to read a file into arrays, 0 where it is not installed.
double Seconds_Of_Numpy(const std::filesystem::path& las) {
  const std::string command =
      "/usr/bin/python3 " SYLVOMEX_BENCH_NUMPY " '" + las.string() + "' 2>/dev/null";
  std::FILE* const answer = popen(command.c_str(), "r");
  double seconds = 0;
  if (answer == nullptr || std::fscanf(answer, "%*d points in %lf", &seconds) != 1) seconds = 0;
  if (answer != nullptr) pclose(answer);
  return seconds;
}

double Seconds_Of_Import(const std::filesystem::path& site, const std::filesystem::path& las) {
  std::filesystem::remove_all(site);
  Init_Site(site, "EPSG:3067");
  const auto start = std::chrono::steady_clock::now();
  ImportTransaction transaction(site);
  LidarImport import;
  import.files = {las};
  import.flying_height = 1000;
  benchmark::DoNotOptimize(Import_Lidar(transaction, import));
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Import(benchmark::State& state) {
  const std::filesystem::path folder = std::filesystem::path(Data_Folder()) / "lidar_import";
  const std::filesystem::path las = Las_File(folder, state.range(0) != 0);
  double ours = 1e9, numpy = 1e9;
  for (auto _ : state) {
    numpy = std::min(numpy, Seconds_Of_Numpy(las));
    const double seconds = Seconds_Of_Import(folder / "site", las);
    state.SetIterationTime(seconds);
    ours = std::min(ours, seconds);
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["MB"] = static_cast<double>(usage.ru_maxrss) / 1000;
  state.counters["echoes"] = benchmark::Counter(static_cast<double>(kEchoes),
                                                benchmark::Counter::kIsIterationInvariantRate);
  state.counters["ours_s"] = ours;
  if (numpy > 0) {
    state.counters["numpy_s"] = numpy;
    state.counters["ratio"] = ours / numpy;
  }
  std::filesystem::remove_all(folder / "site");
}
BENCHMARK(Import)
    ->ArgName("shuffled")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
