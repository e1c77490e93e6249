// SPDX-License-Identifier: MIT
#include "session/session.h"

#include "state/window_limits.h"
#include "state/workspace.h"

#include <fstream>
#include <memory>
#include <optional>

#include "platform/run_time_error.h"
#include "session/record_file.h"
#include "session/recorder.h"
#include "session/recorder_screen.h"
#include "session/script_reader.h"
#include "session/script_screen.h"
#include "session/start_advice.h"
#include "session/step_arguments.h"
#include "session/step_end.h"
#include "session/step_player.h"
#include "workspace/start_up.h"

namespace sylvomex {

namespace {

constexpr const char* kInputStream = "-";

std::string Script_Name(const SessionOptions& options) {
  return options.script == kInputStream ? "standard input" : options.script;
}

/// The block together with its screens.
struct Session {
  Session(const SessionOptions& options, const SessionStreams& session_streams)
      : streams(session_streams),
        script_name(Script_Name(options)),
        screen(session_streams.out, session_streams.err),
        w(std::make_unique<Workspace>(DriveMap(options.root), screen)) {}

  void Report(int line, const std::string& reason) const {
    streams.err << script_name << ':' << line << ": " << reason << '\n';
  }

  const SessionStreams& streams;
  std::string script_name;
  ScriptScreen screen;
  std::unique_ptr<Workspace> w;
  std::optional<RecordFile> record;
  std::optional<Recorder> recorder;
  std::optional<RecorderScreen> recorder_screen;
  HistorySwitch history;
};

/// The ways of a script's events and of its steps for the history, which may be recorded.
void Serve_Events(PlayerServices& services, HistorySwitch& history, Recorder* recorder) {
  services.handle_event = [&history, recorder](Workspace& w, const OperatorEvent& event) {
    return recorder != nullptr ? Handle_Recorded_Event(*recorder, w, event, history.Get())
                               : Handle_Event_In(history.Get(), w, event);
  };
  services.history = &history;
  services.turn_history = [&history, recorder](bool on) {
    history.Turn(on);
    if (recorder != nullptr) recorder->Turn_History(on);
  };
}

// An unreadable file, e.g. a folder, leaves the stream in a failed state.
std::ifstream Open_Script(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (file) file.peek();
  return file;
}

bool Open_Record(Session& session, const SessionOptions& options) {
  if (options.record.empty()) return true;
  try {
    session.record.emplace(
        FilePath{options.record, File_Argument(session.w->Drives, options.record)});
  } catch (const RunTimeError& failure) {
    session.streams.err << "cannot write the record: " << failure.what() << '\n';
    return false;
  }
  session.recorder.emplace(session.record->Script(), options.width, options.height);
  session.recorder_screen.emplace(session.screen, *session.recorder);
  session.w->screen = &*session.recorder_screen;
  return true;
}

bool Start(Session& session, const SessionOptions& options) {
  try {
    Require_Window_Size(options.width, options.height);
    session.w->Form1.ClientWidth = options.width;
    session.w->Form1.ClientHeight = options.height;
    Start_Workspace(*session.w);
    return true;
  } catch (const RunTimeError& error) {
    session.streams.err << "the start-up failed: " << error.what();
    if (!error.Native_Path().empty()) session.streams.err << " (" << error.Native_Path() << ")";
    session.streams.err << '\n';
    const std::string advice = Start_Advice(session.w->Drives);
    if (!advice.empty()) session.streams.err << advice << '\n';
    return false;
  }
}

StepPlayer Make_Player(Session& session, const SessionHooks& hooks) {
  PlayerServices services;
  services.report = [&session](int line, const std::string& reason) {
    session.Report(line, reason);
  };
  Serve_Events(services, session.history, session.recorder ? &*session.recorder : nullptr);
  services.pictures = hooks.pictures;
  return {*session.w, session.screen, std::move(services)};
}

int End_Of_Script(const Session& session, int line) {
  if (const std::size_t left = session.screen.Steps_Left()) {
    session.streams.err << session.script_name << ": " << left
                        << " queued steps were not reached\n";
  }
  const std::size_t answers = session.screen.Answers_Left();
  if (answers == 0) return kAllStepsDone;
  session.Report(line, std::to_string(answers) + " queued answers were not used");
  return kStepFailed;
}

int Play_Steps(Session& session, ScriptReader& reader, StepPlayer& player,
               const std::function<void()>& after_step) {
  while (const auto step = reader.Next()) {
    player.Play(*step);
    after_step();
  }
  return End_Of_Script(session, reader.Line());
}

int Play_Script(Session& session, std::istream& script, const SessionHooks& hooks) {
  const auto show = [&] {
    if (hooks.show) hooks.show(*session.w);
  };
  session.screen.After_Servicing(show);
  StepPlayer player = Make_Player(session, hooks);
  ScriptReader reader(script);
  try {
    return Play_Steps(session, reader, player, [&] {
      if (session.streams.flush_steps) session.streams.out.flush();
      show();
    });
  } catch (const SessionEnd& end) {
    return end.status;
  } catch (const StepEnd& failure) {
    session.Report(reader.Line(), failure.reason);
    return failure.status;
  } catch (const ScriptSyntaxError& error) {
    session.Report(reader.Line(), error.what());
    return kStepFailed;
  }
}

/// The status of a session whose steps ended with another one.
int Status_Of_Outputs(Session& session, int status) {
  if (session.recorder) session.recorder->Finish();
  const bool is_recorded = !session.record || session.record->Is_Whole();
  const bool is_told = session.streams.out.flush().good();
  if (!is_recorded) {
    session.streams.err << session.record->File().name << ": " << kRecordLost << '\n';
  }
  if (!is_told) {
    session.streams.err
        << "the transcript is not complete: it cannot be written, the disk may be full\n";
  }
  return status == kAllStepsDone && !(is_recorded && is_told) ? kOutputLost : status;
}

}  // namespace

int Run_Session(const SessionOptions& options, const SessionStreams& streams,
                const SessionHooks& hooks) {
  Session session(options, streams);
  std::ifstream file;
  const bool from_file = options.script != kInputStream;
  if (from_file) file = Open_Script(File_Argument(session.w->Drives, options.script));
  if (!file) {
    streams.err << "cannot read the script " << options.script << '\n';
    return kStepFailed;
  }
  if (!Open_Record(session, options)) return kStepFailed;
  if (hooks.before_start) hooks.before_start(*session.w);
  const int status = Start(session, options)
                         ? Play_Script(session, from_file ? file : streams.in, hooks)
                         : kStartFailed;
  return Status_Of_Outputs(session, status);
}

namespace {

// Restores the block's own screen at the end of the scope.
class ScreenChange {
 public:
  ScreenChange(Workspace& w, Screen& screen) : w_(w), own_(w.screen) { w.screen = &screen; }
  ~ScreenChange() { w_.screen = own_; }
  ScreenChange(const ScreenChange&) = delete;
  ScreenChange& operator=(const ScreenChange&) = delete;

 private:
  Workspace& w_;
  Screen* own_;
};

void Play_All(ScriptReader& reader, StepPlayer& player) {
  while (const auto step = reader.Next()) player.Play(*step);
}

}  // namespace

bool Play_Over_Block(Workspace& w, const std::filesystem::path& script, std::ostream& transcript,
                     std::ostream& err, HistorySwitch& history, Recorder* recorder) {
  std::ifstream file = Open_Script(script);
  if (!file) {
    err << "cannot read the script " << script << '\n';
    return false;
  }
  ScriptReader reader(file);
  const auto report = [&](int line, const std::string& reason) {
    err << script.string() << ':' << line << ": " << reason << '\n';
  };
  ScriptScreen screen(transcript, err);
  std::optional<RecorderScreen> recorded;
  if (recorder != nullptr) recorded.emplace(screen, *recorder);
  const ScreenChange change(w, recorded ? static_cast<Screen&>(*recorded) : screen);
  PlayerServices services;
  services.report = report;
  Serve_Events(services, history, recorder);
  StepPlayer player(w, screen, std::move(services));
  try {
    Play_All(reader, player);
    return true;
  } catch (const StepEnd& failure) {
    report(reader.Line(), failure.reason);
  } catch (const ScriptSyntaxError& error) {
    report(reader.Line(), error.what());
  } catch (const SessionEnd&) {
    report(reader.Line(), "a script that begins a session cannot end it");
  }
  return false;
}

}  // namespace sylvomex
