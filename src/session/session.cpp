// SPDX-License-Identifier: MIT
#include "session/session.h"

#include "state/window_limits.h"
#include "state/workspace.h"

#include <fstream>
#include <memory>
#include <new>
#include <optional>
#include <sstream>

#include "platform/file_descriptor.h"
#include "platform/guest_files.h"
#include "platform/root_lock.h"
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

/// A session on a root that another program uses keeps its pane pictures to itself.
class RootUse {
 public:
  RootUse(const std::filesystem::path& root, std::ostream& err) : lock_(root) {
    if (!lock_.Is_In_Use()) return;
    guest_.emplace(root, GuestAccess::ReadsAndWrites);
    err << root.string() << " is in use by " << lock_.Holder()
        << ": this session keeps its pane pictures to itself, all other files are shared\n";
  }

 private:
  RootLock lock_;
  std::optional<GuestFiles> guest_;
};

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

  /// The way of the steps' events.
  [[nodiscard]] EventPath Path() {
    return {recorder ? &*recorder : nullptr, journal ? &*journal : nullptr, &history};
  }

  const SessionStreams& streams;
  std::string script_name;
  ScriptScreen screen;
  std::unique_ptr<Workspace> w;
  std::optional<RecordFile> record;
  std::optional<Recorder> recorder;
  std::optional<RecorderScreen> recorder_screen;
  HistorySwitch history;
  std::optional<KeptJournal> journal;
};

/// The steps to play; one without a file has none.
struct Script {
  std::ifstream file;
  std::istream* steps = nullptr;
  std::string journal;  // the whole text, when it is a journal
};

// An unreadable file, e.g. a folder, leaves the stream in a failed state.
std::ifstream Open_Script(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (file) file.peek();
  return file;
}

/// Opens the script, if there is one. One that is a journal is read whole, and the main window
/// begins at its size.
bool Open_Script(Script& script, Session& session, SessionOptions& options) {
  script.steps = &script.file;
  if (options.script == kInputStream) {
    script.steps = &session.streams.in;
  } else if (!options.script.empty()) {
    script.file = Open_Script(File_Argument(session.w->Drives, options.script));
    if (!script.file) {
      session.streams.err << "cannot read the script " << options.script << '\n';
      return false;
    }
  }
  // No step of a script begins with this letter, but the first line of a journal does.
  if (options.script.empty() || script.steps->peek() != 'j') return true;
  std::ostringstream whole;
  whole << script.steps->rdbuf();
  if (!whole) {
    session.streams.err << "cannot read the script " << options.script << " to its end\n";
    return false;
  }
  std::string text = std::move(whole).str();
  const JournalFacts facts = Facts_Of_Journal(text);
  if (!facts.head) {
    session.streams.err << options.script << " is neither a script nor a journal\n";
    return false;
  }
  text.resize(facts.whole_bytes);
  script.journal = std::move(text);
  options.width = facts.head->width;
  options.height = facts.head->height;
  return true;
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
  session.recorder.emplace(session.record->Script(), session.w->Drives, options.width,
                           options.height);
  session.recorder_screen.emplace(*session.w->screen, *session.recorder);
  session.w->screen = &*session.recorder_screen;
  return true;
}

FilePath File_Of(const std::string& name) { return {name, name}; }

/// Begins the journal that was asked for, or goes on in the one to resume. The main window gets the
/// size that it had at the start of that one.
void Open_Journal(Session& session, SessionOptions& options) {
  if (!options.resume.empty()) {
    UnfinishedJournal unfinished = Read_Unfinished_Journal(File_Of(options.resume), options.root);
    options.width = unfinished.facts.head->width;
    options.height = unfinished.facts.head->height;
    session.journal.emplace(std::move(unfinished), session.screen);
  } else if (!options.journal.empty()) {
    const FilePath file = File_Of(options.journal);
    if (!May_Begin_Journal(file)) {
      throw RunTimeError(Failure::BadContent,
                         file.name +
                             ", it holds a session that was not ended: go on with it by "
                             "--resume, or name another file");
    }
    std::error_code failure;
    const auto root = std::filesystem::absolute(options.root, failure);
    if (failure) Throw_File_Failure(File_Of(options.root.string()), failure.message());
    const JournalHead head{root.string(), options.width, options.height, kRandomSeed};
    session.journal.emplace(file, head, session.screen);
  }
  if (session.journal) session.w->screen = &session.journal->Front();
}

bool Opens_Journal(Session& session, SessionOptions& options) {
  try {
    Open_Journal(session, options);
    return true;
  } catch (const RunTimeError& error) {
    session.streams.err << error.what() << '\n';
    return false;
  }
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

PlayerServices Services_Of(Session& session, const SessionHooks& hooks) {
  PlayerServices services;
  services.report = [&session](int line, const std::string& reason) {
    session.Report(line, reason);
  };
  Serve_Events(services, session.Path());
  services.pictures = hooks.pictures;
  return services;
}

/// Does again what stands in the journal to resume.
void Resume(Session& session, const SessionHooks& hooks) {
  const auto told = session.journal->Repeat(*session.w, Services_Of(session, hooks), [] {});
  for (const std::string& sentence : told) session.streams.err << sentence << '\n';
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

/// Plays a journal as a script.
int Play_Journal(Session& session, const std::string& text, StepPlayer& player,
                 const std::function<void()>& after_step) {
  session.screen.Seed_Random(Facts_Of_Journal(text).head->seed);
  JournalCursor cursor(text, false);
  JournalPlayer journal(cursor, session.screen, player, nullptr);
  const JournalPlay play = journal.Play(after_step);
  for (const std::string& sentence : play.odd) session.streams.err << sentence << '\n';
  return play.odd.empty() ? kAllStepsDone : kStepFailed;
}

int Play_Script(Session& session, Script& script, const SessionHooks& hooks) {
  const auto show = [&] {
    if (hooks.show) hooks.show(*session.w);
  };
  session.screen.After_Servicing(show);
  StepPlayer player(*session.w, session.screen, Services_Of(session, hooks));
  ScriptReader reader(*script.steps);
  const auto after_step = [&] {
    if (session.streams.flush_steps) session.streams.out.flush();
    show();
    if (hooks.pause) hooks.pause();
  };
  try {
    return script.journal.empty() ? Play_Steps(session, reader, player, after_step)
                                  : Play_Journal(session, script.journal, player, after_step);
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
  if (session.journal) session.journal->Flush();
  const bool is_journaled = !session.journal || session.journal->Failure().empty();
  if (!is_journaled) {
    session.streams.err << "the journal ends early: " << session.journal->Failure() << '\n';
  }
  const bool is_whole = is_recorded && is_told && is_journaled;
  return status == kAllStepsDone && !is_whole ? kOutputLost : status;
}

int Play_Session(SessionOptions options, const SessionStreams& streams, const SessionHooks& hooks,
                 bool& has_started) {
  const RootUse root_use(options.root, streams.err);
  Session session(options, streams);
  Script script;
  if (!Open_Script(script, session, options) || !Opens_Journal(session, options) ||
      !Open_Record(session, options)) {
    return kStepFailed;
  }
  if (hooks.before_start) hooks.before_start(*session.w);
  int status = kStartFailed;
  if (Start(session, options)) {
    has_started = true;
    if (!options.resume.empty()) Resume(session, hooks);
    status = Play_Script(session, script, hooks);
  }
  return Status_Of_Outputs(session, status);
}

}  // namespace

int Run_Session(const SessionOptions& asked, const SessionStreams& streams,
                const SessionHooks& hooks) {
  bool has_started = false;
  std::string cause;
  try {
    return Play_Session(asked, streams, hooks, has_started);
  } catch (const std::bad_alloc&) {
    cause = Failure_Text(Failure::OutOfMemory);
  } catch (const std::exception& failure) {
    cause = failure.what();
  }
  streams.out.flush();
  streams.err << (has_started ? "the session ends: " : "the start-up failed: ") << cause << '\n';
  return has_started ? kCommandError : kStartFailed;
}

namespace {

// Answers come from another screen until the end of the scope, and are recorded as before.
class ScreenChange {
 public:
  ScreenChange(Workspace& w, Screen& screen, const EventPath& path)
      : w_(w), own_(w.screen), journal_(path.journal) {
    if (journal_ != nullptr) own_behind_ = &journal_->Front().Forward_To(screen);
    Screen& front = journal_ != nullptr ? journal_->Front() : screen;
    if (path.recorder != nullptr) recorded_.emplace(front, *path.recorder);
    w.screen = recorded_ ? &*recorded_ : &front;
  }
  ~ScreenChange() {
    if (journal_ != nullptr) journal_->Front().Forward_To(*own_behind_);
    w_.screen = own_;
  }
  ScreenChange(const ScreenChange&) = delete;
  ScreenChange& operator=(const ScreenChange&) = delete;

 private:
  Workspace& w_;
  Screen* own_;
  KeptJournal* journal_;
  Screen* own_behind_ = nullptr;  // the journal
  std::optional<RecorderScreen> recorded_;
};

void Play_All(ScriptReader& reader, StepPlayer& player) {
  while (const auto step = reader.Next()) player.Play(*step);
}

}  // namespace

bool Play_Over_Block(Workspace& w, const std::filesystem::path& script, std::ostream& transcript,
                     std::ostream& err, const EventPath& path) {
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
  const ScreenChange change(w, screen, path);
  PlayerServices services;
  services.report = report;
  Serve_Events(services, path);
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
