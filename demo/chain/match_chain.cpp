// SPDX-License-Identifier: MIT
#include "demo/chain/match_chain.h"

#include <fstream>

#include "demo/chain/session_play.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

constexpr const char* kNodeFile = "c:\\data\\testi_89_manual2.nod";

bool Is_Measured(const ScriptStep& step) {
  return step.words.size() == 2 && step.words[0].text == "menu" &&
         Is_Chain_Command(step.words[1].text);
}

}  // namespace

ChainResult Play_Match_Session(const std::filesystem::path& root, std::ostream& transcript,
                               std::ostream& err) {
  const std::filesystem::path script = root / "sessions" / "match.txt";
  std::ifstream file(script);
  if (!file) throw RunTimeError(Failure::FileNotFound, script.string(), script);
  ChainResult result;
  const auto note = [&result](const ScriptStep& step, double seconds, const Workspace&) {
    if (!Is_Measured(step)) return;
    result.runs.push_back({step.words[1].text, seconds, Peak_Memory_Of_This_Process()});
  };
  result.done = Play_Watched_Session(root, file, script.string(), transcript, err, {note, {}});
  return result;
}

std::vector<Point3D> Clusters_Of_Site(const std::filesystem::path& root) {
  return Read_Clusters(DriveMap(root).Locate(kNodeFile));
}

std::vector<TrueTree> Trees_Of_Site(const std::filesystem::path& root) {
  const std::filesystem::path truth = root / "truth.csv";
  return Read_True_Trees({truth.string(), truth});
}

}  // namespace sylvomex::demo
