// SPDX-License-Identifier: MIT
#include "demo/chain/crown_chain.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "demo/chain/session_play.h"
#include "demo/table/crown_comparison.h"
#include "demo/table/sample_statistics.h"
#include "demo/write/exact_text.h"
#include "platform/number_text.h"

namespace sylvomex::demo {
namespace {

constexpr double kTopShare = 0.05;   // of the height, the depth that Dcrm stands for
constexpr double kGoodHeight = 0.5;  // metres off
constexpr const char* kFailure = "Fitting FAIL";

// "Fitting FAIL, too few points: 7" and the like without their numbers.
std::string Cause_Of(const std::string& label) {
  if (label.find("CROWN RATIO") != std::string::npos) return "crown ratio";
  return label.find("too few points") != std::string::npos ? "too few points" : "RMSE";
}

// Takes down what the steps of a crown session leave in the block.
class Recorder {
 public:
  explicit Recorder(CrownSessionResult& result) : result_(result) {}

  // Every seed services events once before its crown is grown, and one that fails not again: so
  // each failure is seen at exactly one servicing, that of the last seed after the command.
  void After_Servicing(const Workspace& w) {
    const std::string& label = w.Form1.Label10.Caption;
    if (label.starts_with(kFailure)) ++failed_[Cause_Of(label)];
  }

  void After_Step(const ScriptStep& step, double seconds, const Workspace& w) {
    const std::string& last = step.words.back().text;
    const bool is_click = std::ranges::any_of(
        step.words, [](const ScriptWord& word) { return word.text == "click"; });
    if (step.words[0].text == "say") said_ = last;
    if (last == "Image_Lidar_Allometry_Algorithm") Note_Box(w, seconds);
    if (last == "Crown_Intersection_For_LiDAR") result_.list_seconds = seconds;
    if (last == "Match_Local_Crown") Note_Local(w, seconds);
    if (is_click && said_.starts_with("click ")) {
      result_.clicks.push_back({Said_Number(), true, w.Solution3D.Z, seconds});
    }
  }

 private:
  [[nodiscard]] int Said_Number() const { return Parse_Int32(said_.substr(said_.find(' ') + 1)); }

  void Note_Local(const Workspace& w, double seconds) {
    const LocalTree& tree = w.Crowns.LocalTreeRecord;
    const bool is_new = tree.TreeNumber > trees_;
    trees_ = tree.TreeNumber;
    result_.local.push_back({Said_Number(), is_new, tree.LidarCrownWidth, seconds});
  }

  void Note_Box(const Workspace& w, double seconds) {
    After_Servicing(w);
    CrownBoxFit box;
    box.middle = w.Solution3D;
    box.seconds = seconds;
    box.echoes = w.LidarPoints;
    for (int k = 1; k <= w.Crowns.TreeCount; ++k) box.crowns.push_back(w.Crowns.CrownTrees(k));
    box.failed = std::exchange(failed_, {});
    result_.boxes.push_back(std::move(box));
  }

  CrownSessionResult& result_;
  std::map<std::string, int> failed_;  // since the last box
  std::string said_;
  int trees_ = 0;
};

const Tree& Tree_Of(const Scene& scene, int id) {
  return *std::ranges::find(scene.trees, id, &Tree::id);
}

std::string Statistics_Text(const std::vector<double>& errors) {
  const SampleStatistics s = Statistics_Of(errors);
  return "median " + Fixed_Decimals(s.median, 2) + " m, mean " + Fixed_Decimals(s.mean, 2) +
         " m, RMS " + Fixed_Decimals(s.rms, 2) + " m, largest " +
         Fixed_Decimals(s.largest_absolute, 2) + " m";
}

std::string Local_Line(const Scene& scene, const std::vector<SingleTree>& trees, Species species) {
  std::vector<double> errors;
  int asked = 0;
  for (const SingleTree& one : trees) {
    const Tree& tree = Tree_Of(scene, one.tree);
    if (tree.species != species) continue;
    ++asked;
    const double truth = 2 * Crown_Outline(tree, kTopShare * tree.Height()).radius;
    if (one.done) errors.push_back(one.value - truth);
  }
  return "  " + std::string(Species_Name(species)) + ": " + std::to_string(errors.size()) + " of " +
         std::to_string(asked) + ", " + Statistics_Text(errors) + "\n";
}

}  // namespace

void Play_Crown_Session(const std::filesystem::path& root, std::istream& script,
                        const std::string& name, std::ostream& transcript, std::ostream& err,
                        CrownSessionResult& result) {
  Recorder recorder(result);
  const auto after_step = [&recorder](const ScriptStep& step, double seconds, const Workspace& w) {
    recorder.After_Step(step, seconds, w);
  };
  const auto after_servicing = [&recorder](const Workspace& w) { recorder.After_Servicing(w); };
  result.done =
      Play_Watched_Session(root, script, name, transcript, err, {after_step, after_servicing});
}

std::string Box_Text(const Scene& scene, const CrownBoxFit& box) {
  const std::vector<TreeCrown> trees =
      Crowns_Of_Trees(scene, box.middle.X, box.middle.Y, box.crowns, box.echoes);
  std::string text = "crowns of 50 m by 50 m: " + std::to_string(box.crowns.size()) +
                     " fitted to " + std::to_string(box.echoes.size()) + " echoes in " +
                     Fixed_Decimals(box.seconds, 2) + " s; failed:";
  for (const auto& [cause, count] : box.failed) {
    text += " " + cause + " " + std::to_string(count) + ",";
  }
  text.back() = '\n';
  return text + Table_Text(trees);
}

std::string Local_Text(const Scene& scene, const std::vector<SingleTree>& trees) {
  std::string text = "local crowns, Dcrm less the true diameter at 0.05 of the height:\n";
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    text += Local_Line(scene, trees, species);
  }
  return text;
}

std::string Click_Text(const Scene& scene, const std::vector<SingleTree>& clicks) {
  std::vector<double> errors, seconds;
  for (const SingleTree& click : clicks) {
    errors.push_back(click.value - Tree_Of(scene, click.tree).TopZ);
    seconds.push_back(1000 * click.seconds);
  }
  const auto good =
      std::ranges::count_if(errors, [](double error) { return std::fabs(error) <= kGoodHeight; });
  return "heights by one click from 3 m too high or too low: " + std::to_string(good) + " of " +
         std::to_string(clicks.size()) + " within 0.5 m, " + Statistics_Text(errors) + ", " +
         Fixed_Decimals(Statistics_Of(seconds).mean, 0) + " ms a click\n";
}

}  // namespace sylvomex::demo
