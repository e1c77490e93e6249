// SPDX-License-Identifier: MIT
// The program is killed at random moments of random sessions and goes on. $SYLVOMEX_KILLS: how
// often, 20 unless set.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <sstream>
#include <thread>

#include "platform/files.h"
#include "programs/random_session.h"
#include "programs/running_program.h"
#include "session/journal_text.h"
#include "session/session.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPoints = "c/data/Lehtomaa/Pistedata/PointData.txt";
const std::string kForeign = "a line of another program\n";

// The files that the sessions leave, but for the scratch pictures.
constexpr const char* kResults[] = {kPoints,
                                    "c/data/Lehtomaa/Pistedata/PointData.txt.taken",
                                    "c/data/imageobs.txt",
                                    "c/apu/quvex.txt",
                                    "c/data/polyline.txt",
                                    "c/data/IMA_polyline.txt",
                                    "c/data/XY_polyline.txt"};

std::string State_Prints() {
  std::string prints;
  for (const char* name : {"Solution3D",
                           "SolutionValid",
                           "ImageCount",
                           "CurrentImage",
                           "NextMeasurementNumber",
                           "ObservationFileName",
                           "CenterTarget",
                           "PanCenter",
                           "Text4",
                           "Text5",
                           "Text6",
                           "Draw_Polygon",
                           "Measure_Tie_and_CP",
                           "Form3.Visible",
                           "Form3.Text4",
                           "Label2",
                           "Label10",
                           "ObservationRecord.MeasurementNumber",
                           "ObservationRecord.X",
                           "ObservationRecord.Rmse",
                           "ObservationRecord.Cols",
                           "ObservationRecord.FreeText"}) {
    prints += std::string("print ") + name + "\n";
  }
  for (int k = 0; k < 3; ++k) {
    const std::string image = std::to_string(k);
    prints += "print Text1(" + std::to_string(2 * k) + ")\nprint Text1(" +
              std::to_string(2 * k + 1) + ")\nprint Check1(" + image + ")\nprint PaneViews(" +
              image + ")\nmarks Picture1(" + image + ")\n";
  }
  return prints;
}

int Kills() {
  const char* const asked = std::getenv("SYLVOMEX_KILLS");
  return asked != nullptr ? std::atoi(asked) : 20;
}

/// The lines that are no comments: those carry the time of day.
std::string Without_Dates(const std::string& text) {
  std::istringstream lines(text);
  std::string kept;
  for (std::string line; std::getline(lines, line);) {
    kept += line.starts_with("# ") ? line.substr(0, line.find(" 20")) : line;
    kept += '\n';
  }
  return kept;
}

/// A site of its own for every session.
struct KilledSite {
  SmallSite site;
  TemporaryFolder folder;
  std::string journal = (folder.Path() / "journal").string();

  KilledSite() {
    for (int k = 0; k < 3; ++k) {
      SmallImage image;
      image.id = k + 1;
      image.width = image.height = 64;
      image.colour = 0;
      image.start_col = image.start_row = 32;
      image.full_width = 64;
      image.full_height = 65;
      image.a0 = image.b0 = 32;
      image.X0 = 20.0 * k;
      site.Write_Image(std::string(1, static_cast<char>('a' + k)), image);
    }
    site.Folder().Make_Folder("c/apu");
    site.Folder().Write("c/data/JetColorMAP.csv", "0,0,0\n255,255,255\n");
  }

  RunningProgram Start(std::vector<std::string> more) const {
    std::vector<std::string> arguments{"--root", site.Folder().Path().string(), "--size",
                                       "200x240"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return {arguments, folder.Path() / "out", folder.Path() / "err"};
  }
  std::string Script_File(const std::string& text) const {
    return folder.Write("script", text).native.string();
  }
  std::string Journal_Text() const { return folder.Has("journal") ? folder.Read("journal") : ""; }
  std::map<std::string, std::string> Results() const {
    std::map<std::string, std::string> results;
    for (const char* name : kResults) {
      if (site.Folder().Has(name)) results[name] = Without_Dates(site.Folder().Read(name));
    }
    return results;
  }
};

/// How far a killed session came.
struct Reached {
  std::size_t events = 0;
  int answers = 0;         // of the last event
  bool last_ended = true;  // its end stands in the journal
};

Reached How_Far(const std::string& text) {
  const std::string whole = text.substr(0, Facts_Of_Journal(text).whole_bytes);
  JournalCursor cursor(whole, false);
  Reached reached;
  for (const JournalLine* line = cursor.Peek(); line != nullptr; line = cursor.Peek()) {
    if (line->kind == JournalLine::Kind::Event) {
      ++reached.events;
      reached.answers = 0;
      reached.last_ended = false;
    }
    const bool is_choice =
        line->kind == JournalLine::Kind::Answer && line->step.words.front().text != "button";
    if (is_choice) ++reached.answers;
    if (line->kind == JournalLine::Kind::End) reached.last_ended = true;
    cursor.Take();
  }
  return reached;
}

/// Waits for a random moment: until the journal has a random length, and a little longer.
void Wait_For_Moment(const RunningProgram& program, const fs::path& journal, std::uint64_t bytes,
                     int microseconds) {
  for (std::error_code failure; program.Runs();) {
    const auto size = fs::file_size(journal, failure);
    if (!failure && size >= bytes) break;
  }
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
}

struct Outcome {
  std::string state;
  std::map<std::string, std::string> results;
};

/// What a session has that was never killed.
Outcome Unkilled(const std::string& script) {
  const KilledSite other;
  SessionOptions options;
  options.script = "-";
  options.root = other.site.Folder().Path();
  options.width = 200;
  options.height = 240;
  std::istringstream in(script + "say state\n" + State_Prints());
  std::ostringstream out, err;
  const int status = Run_Session(options, {in, out, err});
  EXPECT_EQ(status, 0) << err.str() << script;
  const std::string transcript = out.str();
  return {transcript.substr(transcript.find("say state\n")), other.Results()};
}

/// Kills a session, now and then its resumption too, and resumes it. Returns how it was killed.
std::string Kill_And_Resume(KilledSite& killed, const std::vector<SessionEvent>& events,
                            RandomSession& random, bool with_foreign_line) {
  const std::string script = killed.Script_File(Script_Of(events, events.size()));
  {
    RunningProgram program = killed.Start({"--script", script, "--journal", killed.journal});
    Wait_For_Moment(program, killed.journal, 100 + static_cast<std::uint64_t>(random.Below(6000)),
                    random.Below(400));
    program.Kill();
  }
  const std::string at_kill = killed.Journal_Text();
  if (with_foreign_line) Append_To_File(killed.site.Folder().File(kPoints), kForeign);
  while (random.Below(3) == 0) {
    RunningProgram program = killed.Start({"--resume", killed.journal});
    std::this_thread::sleep_for(std::chrono::milliseconds(random.Below(60)));
    program.Kill();
  }
  return at_kill;
}

std::string Without_Foreign_Line(std::string text) {
  const std::size_t at = text.find(kForeign);
  return at == std::string::npos ? text : text.erase(at, kForeign.size());
}

TEST(KilledProgram, GoesOnWithTheStateOfItsLastEventAndEveryLineOnce) {
  int unfinished = 0;
  for (int n = 0; n < Kills(); ++n) {
    SCOPED_TRACE("session " + std::to_string(n));
    RandomSession random(static_cast<std::uint32_t>(n) + 1);
    const bool with_foreign_line = random.Below(4) == 0;
    const std::vector<SessionEvent> events = random.Events(40, !with_foreign_line);
    KilledSite killed;
    const std::string at_kill = Kill_And_Resume(killed, events, random, with_foreign_line);
    if (!Facts_Of_Journal(at_kill).head) continue;  // killed before its first line

    const Reached reached = How_Far(at_kill);
    if (!reached.last_ended) ++unfinished;
    const std::string unkilled =
        Script_Of(events, reached.events, reached.last_ended ? -1 : reached.answers);
    const Outcome wanted = Unkilled(unkilled);
    const std::string prints = killed.Script_File("say state\n" + State_Prints());
    ASSERT_EQ(killed.Start({"--resume", killed.journal, "--script", prints}).Wait(), 0)
        << killed.folder.Read("err");
    const std::string state = killed.folder.Read("out");
    ASSERT_EQ(state, wanted.state) << killed.folder.Read("err") << at_kill << "unkilled:\n"
                                   << unkilled;
    std::map<std::string, std::string> results = killed.Results();
    if (with_foreign_line) results[kPoints] = Without_Foreign_Line(results[kPoints]);
    if (with_foreign_line && results[kPoints].empty()) results.erase(kPoints);
    ASSERT_EQ(results, wanted.results) << killed.folder.Read("err") << killed.Journal_Text();
  }
  std::cout << Kills() << " kills, " << unfinished << " inside an event\n";
}

}  // namespace
}  // namespace sylvomex
