// SPDX-License-Identifier: MIT
#include "demo/chain/match_chain.h"

#include <chrono>
#include <fstream>
#include <functional>
#include <memory>

#include "platform/run_time_error.h"
#include "session/script_reader.h"
#include "session/script_screen.h"
#include "session/step_end.h"
#include "session/step_player.h"
#include "workspace/event_dispatch.h"
#include "workspace/start_up.h"

namespace sylvomex::demo {
namespace {

constexpr double kWindowWidth = 1280;  // client pixels
constexpr double kWindowHeight = 1024;
constexpr const char* kNodeFile = "c:\\data\\testi_89_manual2.nod";

std::unique_ptr<Workspace> Started_Block(const std::filesystem::path& root, Screen& screen) {
  auto w = std::make_unique<Workspace>(DriveMap(root), screen);
  w->Form1.ClientWidth = kWindowWidth;
  w->Form1.ClientHeight = kWindowHeight;
  Start_Workspace(*w);
  return w;
}

bool Is_Measured(const ScriptStep& step) {
  return step.words.size() == 2 && step.words[0].text == "menu" &&
         Is_Chain_Command(step.words[1].text);
}

void Play_And_Measure(StepPlayer& player, const ScriptStep& step, std::vector<CommandRun>& runs) {
  const auto begin = std::chrono::steady_clock::now();
  player.Play(step);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  runs.push_back({step.words[1].text, taken.count(), Peak_Memory_Of_This_Process()});
}

void Play_All(ScriptReader& reader, StepPlayer& player, std::vector<CommandRun>& runs) {
  while (const auto step = reader.Next()) {
    if (Is_Measured(*step)) {
      Play_And_Measure(player, *step, runs);
    } else {
      player.Play(*step);
    }
  }
}

using Report = std::function<void(int line, const std::string& reason)>;

bool Play_To_The_End(ScriptReader& reader, StepPlayer& player, std::vector<CommandRun>& runs,
                     const Report& report) {
  try {
    Play_All(reader, player, runs);
    return true;
  } catch (const StepEnd& failure) {
    report(reader.Line(), failure.reason);
  } catch (const ScriptSyntaxError& error) {
    report(reader.Line(), error.what());
  } catch (const SessionEnd&) {
    report(reader.Line(), "the session ended before its last step");
  }
  return false;
}

}  // namespace

ChainResult Play_Match_Session(const std::filesystem::path& root, std::ostream& transcript,
                               std::ostream& err) {
  const std::filesystem::path script = root / "sessions" / "match.txt";
  std::ifstream file(script);
  if (!file) throw RunTimeError(Failure::FileNotFound, script.string(), script);
  ScriptScreen screen(transcript, err);
  const auto w = Started_Block(root, screen);
  const Report report = [&](int line, const std::string& reason) {
    err << script.string() << ':' << line << ": " << reason << '\n';
  };
  StepPlayer player(*w, screen, {Handle_Event, report});
  ScriptReader reader(file);
  ChainResult result;
  result.done = Play_To_The_End(reader, player, result.runs, report);
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
