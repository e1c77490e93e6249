// SPDX-License-Identifier: MIT
// Evaluates the search for tree tops by template matching on generated stands with known trees.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "accuracy_cases.h"
#include "case_run.h"
#include "demo/write/exact_text.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "summary.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

constexpr const char* kUsage = "accuracy_matching [--seeds N] [--quick] [--all]\n";
constexpr int kMostSeeds = 1000;
constexpr double kQuickPixelScale = 2;

struct Request {
  int seeds = 1;
  bool quick = false;  // coarser pixels
  bool all = false;    // the long list of cases
};

int Read_Seeds(int count, char** arguments, int i) {
  if (i == count) throw RunTimeError(Failure::BadContent, "--seeds has no value");
  const int seeds = Parse_Int32(arguments[i]);
  if (seeds >= 1 && seeds <= kMostSeeds) return seeds;
  throw RunTimeError(Failure::BadContent, "--seeds is " + std::to_string(seeds) + ", not 1 to " +
                                              std::to_string(kMostSeeds));
}

Request Read_Arguments(int count, char** arguments) {
  Request request;
  for (int i = 1; i < count; ++i) {
    const std::string option = arguments[i];
    if (option == "--seeds") {
      request.seeds = Read_Seeds(count, arguments, ++i);
    } else if (option == "--quick") {
      request.quick = true;
    } else if (option == "--all") {
      request.all = true;
    } else {
      throw RunTimeError(Failure::BadContent, "unknown option " + option);
    }
  }
  return request;
}

void Tell_Progress(const AccuracyCase& one, const SiteSettings& settings, const CaseRun& run) {
  std::fprintf(stderr, "%s, seed %llu: site %s s, chain %s s%s%s\n", one.name.c_str(),
               static_cast<unsigned long long>(settings.seed),
               Fixed_Decimals(run.site_seconds, 1).c_str(),
               Fixed_Decimals(run.chain_seconds, 2).c_str(),
               run.done ? "" : ", FAILED: ", run.done ? "" : run.failure.c_str());
}

std::vector<CaseRun> Run_Seeds(const AccuracyCase& one, const Request& request) {
  std::vector<CaseRun> runs;
  for (int i = 0; i < request.seeds; ++i) {
    SiteSettings settings = one.settings;
    settings.seed += static_cast<std::uint64_t>(i);
    if (request.quick) settings.pixel_scale = kQuickPixelScale;
    runs.push_back(Run_Case(settings));
    Tell_Progress(one, settings, runs.back());
  }
  return runs;
}

void Print_Head(const Request& request) {
  const SiteSettings base;
  std::printf("Tree tops by template matching; seeds %llu and on, %d a case; %s\n%s",
              static_cast<unsigned long long>(base.seed), request.seeds,
              request.quick ? "QUICK: photographs of pixels twice as coarse as the real ones"
                            : "photographs at their real scale",
              Heading_Row().c_str());
}

/// 0 when every session ran to its end, else 1.
int Run_Cases(const Request& request) {
  Print_Head(request);
  bool all_done = true;
  for (const AccuracyCase& one : request.all ? Long_Case_List() : Short_Case_List()) {
    const std::vector<CaseRun> runs = Run_Seeds(one, request);
    for (const CaseRun& run : runs) all_done = all_done && run.done;
    std::fputs(Case_Row(one.name, runs).c_str(), stdout);
    std::fflush(stdout);
  }
  std::fputs(("\n" + Legend()).c_str(), stdout);
  return all_done ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return Run_Cases(Read_Arguments(count, arguments));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "accuracy_matching: %s\n%s", error.what(), kUsage);
    return 1;
  }
}
