// SPDX-License-Identifier: MIT
#include "demo/chain/session_play.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "session/script_screen.h"
#include "session/step_end.h"
#include "session/step_player.h"
#include "workspace/event_dispatch.h"
#include "workspace/start_up.h"

namespace sylvomex::demo {
namespace {

constexpr double kWindowWidth = 1280;  // client pixels
constexpr double kWindowHeight = 1024;

std::unique_ptr<Workspace> Started_Block(const std::filesystem::path& root, Screen& screen) {
  auto w = std::make_unique<Workspace>(DriveMap(root), screen);
  w->Form1.ClientWidth = kWindowWidth;
  w->Form1.ClientHeight = kWindowHeight;
  Start_Workspace(*w);
  return w;
}

void Play_All(ScriptReader& reader, StepPlayer& player, const SessionWatch& watch,
              const Workspace& w) {
  while (const auto step = reader.Next()) {
    const auto begin = std::chrono::steady_clock::now();
    player.Play(*step);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    if (watch.after_step) watch.after_step(*step, taken.count(), w);
  }
}

using Report = std::function<void(int line, const std::string& reason)>;

bool Play_To_The_End(ScriptReader& reader, StepPlayer& player, const SessionWatch& watch,
                     const Workspace& w, const Report& report) {
  try {
    Play_All(reader, player, watch, w);
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

bool Play_Watched_Session(const std::filesystem::path& root, std::istream& script,
                          const std::string& name, std::ostream& transcript, std::ostream& err,
                          const SessionWatch& watch) {
  ScriptScreen screen(transcript, err);
  const auto w = Started_Block(root, screen);
  if (watch.after_servicing) {
    screen.After_Servicing([&watch, &w] { watch.after_servicing(*w); });
  }
  const Report report = [&](int line, const std::string& reason) {
    err << name << ':' << line << ": " << reason << '\n';
  };
  PlayerServices services;
  services.handle_event = Handle_Event;
  services.report = report;
  StepPlayer player(*w, screen, std::move(services));
  ScriptReader reader(script);
  return Play_To_The_End(reader, player, watch, *w, report);
}

}  // namespace sylvomex::demo
