// SPDX-License-Identifier: MIT
#include "case_run.h"

#include <chrono>
#include <filesystem>
#include <sstream>

#include "demo/chain/match_chain.h"
#include "demo/chain/temporary_site.h"
#include "demo/write/demo_site.h"

namespace sylvomex::demo {
namespace {

constexpr double kDominantHeight = 17;  // metres
constexpr int kLeastPhotos = 4;

double Seconds_Of_Making(SiteSettings settings, const std::filesystem::path& root) {
  constexpr double kFewestPulses = 0.001;  // the chain reads none
  settings.pulse_share = kFewestPulses;
  const auto begin = std::chrono::steady_clock::now();
  const Scene scene = Build_Scene(settings);
  Write_Demo_Site(scene, Fly_Over(scene), root);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void Judge(CaseRun& run, const std::filesystem::path& root, const std::string& transcript) {
  const auto clusters = Clusters_Of_Site(root);
  const auto trees = Trees_Of_Site(root);
  const SearchedPlot plot = Read_Searched_Plot(transcript);
  run.dominant = Compare_Clusters(clusters, trees, plot);
  run.others = Compare_Clusters(clusters, With_Roles_Exchanged(trees), plot);
}

}  // namespace

std::vector<TrueTree> With_Roles_Exchanged(std::vector<TrueTree> trees) {
  for (TrueTree& tree : trees) {
    const bool counts = tree.height >= kDominantHeight && tree.photos >= kLeastPhotos;
    tree.height = kDominantHeight;
    tree.photos = counts ? 0 : kLeastPhotos;
  }
  return trees;
}

CaseRun Run_Case(const SiteSettings& settings) {
  const TemporarySite folder("accuracy_matching");
  CaseRun run;
  run.site_seconds = Seconds_Of_Making(settings, folder.Path());
  std::ostringstream transcript, err;
  const ChainResult chain = Play_Match_Session(folder.Path(), transcript, err);
  for (const CommandRun& command : chain.runs) run.chain_seconds += command.seconds;
  run.done = chain.done;
  run.failure = err.str();
  if (run.done) Judge(run, folder.Path(), transcript.str());
  return run;
}

}  // namespace sylvomex::demo
