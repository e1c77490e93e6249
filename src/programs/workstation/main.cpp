// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "desktop/desktop.h"
#include "desktop/dialog_layout.h"
#include "desktop/open_display.h"
#include "desktop/qt_text.h"
#include "desktop/script_windows.h"
#include "desktop/start_questions.h"
#include "desktop_aids/aids.h"
#include "desktop_aids/remembered.h"
#include "platform/run_time_error.h"
#include "programs/workstation/desktop_command_line.h"
#include "programs/workstation/site_aids.h"
#include "programs/workstation/taken_root.h"
#include "session/journal_folder.h"
#include "session/start_advice.h"
#include "session/step_end.h"

namespace {

using namespace sylvomex;

int Play_Script(const SessionOptions& options) {
  ScriptWindows windows(options.show);
  SessionHooks hooks;
  hooks.pictures = &windows;
  hooks.before_start = [&](Workspace& w) { windows.Take_Block(w); };
  if (options.show) hooks.show = [&](Workspace&) { windows.Show(); };
  if (options.show && options.pace > 0) hooks.pause = [&] { ScriptWindows::Wait(options.pace); };
  const bool is_conversation = options.script == "-" || isatty(STDOUT_FILENO) != 0;
  return Run_Session(options, {std::cin, std::cout, std::cerr, is_conversation}, hooks);
}

// The operator has confirmed the exit: nothing remains to be saved, and a running command must not
// continue.
void End_Process(TakenRoot& taken) {
  taken.guest.reset();
  std::cout.flush();
  std::_Exit(kAllStepsDone);
}

int Report_Failed_Start(const RunTimeError& failure, const DriveMap& drives) {
  const std::string path = failure.Native_Path().string();
  const std::string advice = Start_Advice(drives);
  std::cerr << "the start-up failed: " << failure.what() << " (" << path << ")\n";
  if (!advice.empty()) std::cerr << advice << '\n';
  QMessageBox box(QMessageBox::Critical, QStringLiteral("SYLVOMEX"),
                  QStringLiteral("The start-up failed: ") + Qt_Text(failure.what()),
                  QMessageBox::Close);
  box.setInformativeText(Qt_Text(advice.empty() ? path : advice));
  Lay_Out(box);
  box.exec();
  return kStartFailed;
}

bool Has_Display() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// The journal of the desktop's session. The operator is asked about one that was not ended.
void Choose_Journal(DesktopOptions& options, const std::filesystem::path& root) {
  try {
    options.journal = Journal_Of_Root(root);
    auto unfinished = Find_Unfinished_Journal(options.journal, root);
    if (unfinished && Ask_Whether_To_Go_On(*unfinished)) {
      options.unfinished = std::move(unfinished);
    } else {
      Put_Journal_Aside(options.journal);
    }
  } catch (const RunTimeError& failure) {
    std::cerr << "sylvomex: no journal is written: " << failure.what() << '\n';
    Tell_Of_Missing_Journal(failure);
    options.journal = {};
  }
}

int Run_Desktop(const CommandLine& line, int argc, char** argv) {
  const SessionOptions& options = line.options;
  const auto application = Open_Display(argc, argv);
  application->setQuitOnLastWindowClosed(false);
  const bool is_dark = !line.plain && Set_Look_Of_Machine();
  if (line.plain) Set_Application_Look();
  if (is_dark) Show_Dark(true);
  TakenRoot taken;
  if (!Take_Root(taken, options.root, !line.plain)) return kStartFailed;
  DesktopOptions desktop_options{DriveMap(taken.root), std::nullopt, options.record,
                                 [&taken] { End_Process(taken); }, line.plain};
  if (!line.plain && taken.Is_Own()) Choose_Journal(desktop_options, taken.root);
  if (line.size_given) {
    desktop_options.client_size =
        QSize(static_cast<int>(options.width), static_cast<int>(options.height));
  }
  Desktop desktop(std::move(desktop_options));
  try {
    desktop.Start();
  } catch (const RunTimeError& failure) {
    return Report_Failed_Start(failure, DriveMap(taken.root));
  }
  std::optional<Aids> aids;
  std::optional<Remembered> remembered;
  if (!line.plain) {
    aids.emplace(desktop, is_dark);
    Add_Site_Menu(desktop, *aids);
    remembered.emplace(desktop, *aids, Remembered::Usual_File());
  }
  if (!line.begin.empty()) desktop.Begin_With(line.begin);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error like a full disk
  std::signal(SIGPIPE, SIG_IGN);  // so is a transcript that nobody reads any longer
  std::ios::sync_with_stdio(false);
  const auto line = Parse_Desktop_Command_Line(argc, argv, std::cerr);
  if (!line) return kStepFailed;
  if (line->help) {
    std::cout << kUsage;
    return kAllStepsDone;
  }
  const bool plays_script = !line->options.script.empty() || !line->options.resume.empty();
  if (plays_script && !line->options.show) return Play_Script(line->options);
  if (!Has_Display()) {
    std::cerr << Display_Needed("");
    return kStartFailed;
  }
  return plays_script ? Play_Script(line->options) : Run_Desktop(*line, argc, argv);
}
