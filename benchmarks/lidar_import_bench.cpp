// SPDX-License-Identifier: MIT
// LAS files of 20 million echoes (SYLVOMEX_BENCH_ECHOES tells another number), 2.4 a pulse,
// imported into the tiles of a fresh site: one file in the order of its times, one shuffled, and
// four whose pulses take turns. Seconds, the echoes a second, and the largest memory of the process
// (goal: 2.5 times the time in which NumPy reads the files into arrays, or less; where NumPy is
// installed, it takes turns with ours, and "ratio" is that of the least times of both).
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench_files.h"
#include "interchange/lidar_import.h"
#include "interchange/site.h"
#include "round_times.h"

namespace sylvomex::bench {
namespace {

namespace fs = std::filesystem;

enum Order { kOrdered, kShuffled, kTakingTurns };
constexpr std::size_t kHeader = 375, kPoint = 30, kParts = 4;

std::uint64_t Echoes() {
  const char* const told = std::getenv("SYLVOMEX_BENCH_ECHOES");
  return told == nullptr ? 20'000'000 : std::strtoull(told, nullptr, 10);
}

template <class Value>
void Put(std::vector<char>& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

std::vector<char> Header(std::uint64_t echoes) {
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
  Put(h, 247, echoes);
  return h;
}

/// Points written one by one; the header tells their number at the end.
class LasFile {
 public:
  explicit LasFile(const fs::path& file) : out_(std::fopen(file.c_str(), "wb")) { Put_Header(); }
  ~LasFile() {
    std::rewind(out_);
    Put_Header();
    std::fclose(out_);
  }
  LasFile(const LasFile&) = delete;
  LasFile& operator=(const LasFile&) = delete;

  void Add(const std::vector<char>& point) {
    std::fwrite(point.data(), 1, point.size(), out_);
    ++echoes_;
  }

 private:
  void Put_Header() {
    const std::vector<char> header = Header(echoes_);
    std::fwrite(header.data(), 1, header.size(), out_);
  }
  std::FILE* out_;
  std::uint64_t echoes_ = 0;
};

/// Flight lines over 2 km x 2 km, with scan angles; every five pulses have 1, 2, 2, 3 and 4 echoes.
/// The pulses go to the files in turn.
void Write_Las(const std::vector<fs::path>& files) {
  static constexpr int kReturns[] = {1, 2, 2, 3, 4};
  std::vector<std::unique_ptr<LasFile>> out;
  for (const fs::path& file : files) out.push_back(std::make_unique<LasFile>(file));
  std::mt19937 random(1);
  std::vector<char> point(kPoint);
  for (std::uint64_t echo = 0, pulse = 0; echo < Echoes(); ++pulse) {
    const int returns = kReturns[pulse % 5];
    const auto X = static_cast<std::int32_t>(random() % 2'000'000);
    for (int number = 1; number <= returns && echo < Echoes(); ++number, ++echo) {
      Put(point, 0, X + 100 * number);
      Put(point, 4, static_cast<std::int32_t>(pulse * 2'000'000 / (Echoes() / 2)));
      Put(point, 8, 180'000 - 3000 * number);
      Put(point, 12, static_cast<std::uint16_t>(random() % 3000));
      point[14] = static_cast<char>(number + 16 * returns);
      Put(point, 18, static_cast<std::int16_t>((X - 1'000'000) / 400));
      Put(point, 20, static_cast<std::uint16_t>(1 + pulse / 1'000'000));
      Put(point, 22, 200'000 + 5e-6 * static_cast<double>(pulse));
      out[pulse % out.size()]->Add(point);
    }
  }
}

/// The same points in another order.
void Write_Shuffled(const fs::path& ordered, const fs::path& file) {
  std::vector<char> bytes(fs::file_size(ordered));
  std::FILE* const in = std::fopen(ordered.c_str(), "rb");
  if (std::fread(bytes.data(), 1, bytes.size(), in) != bytes.size()) std::abort();
  std::fclose(in);
  std::mt19937_64 random(2);
  std::vector<char> held(kPoint);
  for (std::uint64_t i = Echoes() - 1; i > 0; --i) {
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

/// Made once, in a process of their own: the memory that this takes is not the import's.
void Make_Files(const std::vector<fs::path>& files, Order order, const fs::path& ordered) {
  if (fs::exists(files.back())) return;
  const pid_t child = fork();
  if (child == 0) {
    if (order != kShuffled) Write_Las(files);
    if (order == kShuffled) Write_Shuffled(ordered, files.front());
    _exit(0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) std::abort();
}

std::vector<fs::path> Las_Files(const fs::path& folder, Order order) {
  fs::create_directories(folder);
  const std::string echoes = std::to_string(Echoes());
  const fs::path ordered = folder / (echoes + "_ordered.las");
  std::vector<fs::path> files{ordered};
  if (order == kShuffled) {
    Make_Files(files, kOrdered, ordered);
    files = {folder / (echoes + "_shuffled.las")};
  } else if (order == kTakingTurns) {
    files.clear();
    for (std::size_t part = 0; part < kParts; ++part) {
      files.push_back(folder / (echoes + "_part_" + std::to_string(part) + ".las"));
    }
  }
  Make_Files(files, order, ordered);
  return files;
}

/// Seconds that NumPy takes to read files into arrays, 0 where it is not installed.
double Seconds_Of_Numpy(const std::vector<fs::path>& files) {
  std::string command = "/usr/bin/python3 " SYLVOMEX_BENCH_NUMPY;
  for (const fs::path& file : files) command += " '" + file.string() + "'";
  std::FILE* const answer = popen((command + " 2>/dev/null").c_str(), "r");
  double seconds = 0;
  if (answer == nullptr || std::fscanf(answer, "%*d points in %lf", &seconds) != 1) seconds = 0;
  if (answer != nullptr) pclose(answer);
  return seconds;
}

double Seconds_Of_Import(const fs::path& site, const std::vector<fs::path>& files) {
  fs::remove_all(site);
  Init_Site(site, "EPSG:3067");
  const auto start = std::chrono::steady_clock::now();
  ImportTransaction transaction(site);
  LidarImport import;
  import.files = files;
  import.flying_height = 1000;
  benchmark::DoNotOptimize(Import_Lidar(transaction, import));
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Import(benchmark::State& state) {
  const fs::path folder = fs::path(Data_Folder()) / "lidar_import";
  const std::vector<fs::path> files = Las_Files(folder, static_cast<Order>(state.range(0)));
  std::vector<double> ours, numpy;
  for (auto _ : state) {
    numpy.push_back(Seconds_Of_Numpy(files));
    const double seconds = Seconds_Of_Import(folder / "site", files);
    state.SetIterationTime(seconds);
    ours.push_back(seconds);
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["MB"] = static_cast<double>(usage.ru_maxrss) / 1000;
  state.counters["echoes"] = benchmark::Counter(static_cast<double>(Echoes()),
                                                benchmark::Counter::kIsIterationInvariantRate);
  const double least = *std::min_element(ours.begin(), ours.end());
  const double least_numpy = *std::min_element(numpy.begin(), numpy.end());
  state.counters["least_s"] = least;
  state.counters["median_s"] = Median(ours);
  if (least_numpy > 0) {
    state.counters["numpy_least_s"] = least_numpy;
    state.counters["numpy_median_s"] = Median(numpy);
    state.counters["ratio"] = least / least_numpy;
  }
  fs::remove_all(folder / "site");
}
BENCHMARK(Import)
    ->ArgName("order")
    ->Arg(kOrdered)
    ->Arg(kShuffled)
    ->Arg(kTakingTurns)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace sylvomex::bench

BENCHMARK_MAIN();
