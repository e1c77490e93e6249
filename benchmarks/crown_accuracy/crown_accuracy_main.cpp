// SPDX-License-Identifier: MIT
// Judges the fit of crowns to lidar echoes on generated stands with known trees.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "crown_case.h"
#include "crown_summary.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

constexpr int kMostSeeds = 1000;

int Read_Seeds(int count, char** arguments) {
  if (count == 1) return 1;
  if (count != 3 || std::string(arguments[1]) != "--seeds") {
    throw RunTimeError(Failure::BadContent, "--seeds and a number are expected");
  }
  const int seeds = Parse_Int32(arguments[2]);
  if (seeds >= 1 && seeds <= kMostSeeds) return seeds;
  throw RunTimeError(Failure::BadContent, "--seeds is " + std::to_string(seeds) + ", not 1 to " +
                                              std::to_string(kMostSeeds));
}

std::vector<CrownCase> All_Cases() {
  std::vector<CrownCase> cases;
  for (const double stems : {100.0, 300.0}) {
    for (const double pulses : {1.0, 4.0, 6.0}) cases.push_back({stems, pulses});
  }
  return cases;
}

std::vector<CrownCaseRun> Run_Seeds(const CrownCase& one, int seeds) {
  std::vector<CrownCaseRun> runs;
  for (int i = 0; i < seeds; ++i) {
    const std::uint64_t seed = SiteSettings{}.seed + static_cast<std::uint64_t>(i);
    runs.push_back(Run_Crown_Case(one, seed));
    const CrownCaseRun& run = runs.back();
    std::fprintf(stderr, "%.0f stems/ha, %.0f pulses, seed %llu: %d crowns, %d failed, %.2f s%s\n",
                 one.stems_per_hectare, one.pulses, static_cast<unsigned long long>(seed),
                 run.crowns, run.failed, run.seconds, run.done ? "" : (" " + run.failure).c_str());
  }
  return runs;
}

/// 0 when every session was played to its end, else 1.
int Run_Cases(int seeds) {
  std::printf("Crowns fitted to lidar echoes; seeds %llu and on, %d a case\n%s",
              static_cast<unsigned long long>(SiteSettings{}.seed), seeds, Crown_Heading().c_str());
  bool all_done = true;
  for (const CrownCase& one : All_Cases()) {
    const std::vector<CrownCaseRun> runs = Run_Seeds(one, seeds);
    for (const CrownCaseRun& run : runs) all_done = all_done && run.done;
    std::fputs(Crown_Rows(one, runs).c_str(), stdout);
    std::fflush(stdout);
  }
  std::fputs(("\n" + Crown_Legend()).c_str(), stdout);
  return all_done ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return Run_Cases(Read_Seeds(count, arguments));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "accuracy_crowns: %s\naccuracy_crowns [--seeds N]\n", error.what());
    return 1;
  }
}
