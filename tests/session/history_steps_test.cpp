// SPDX-License-Identifier: MIT
// The steps history, undo, redo and takeback in whole sessions.
#include <gtest/gtest.h>

#include <sstream>

#include "session/session.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr const char* kMeasure =
    "click Picture1(0) 50 60\nclick Picture1(1) 50 60\nmenu Point_Intersection\n"
    "menu Save_measured_point\npress Form3.Accept_And_Save_Button\n";

class HistorySteps : public testing::Test {
 protected:
  HistorySteps() {
    SmallImage right;
    right.id = 2;
    right.X0 = 20;
    images_ = "file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nfile " +
              site_.Write_Image("b", right) + "\nmenu Add_images_to_set\n";
  }

  PlayedSession Play(const std::string& steps) {
    return Play_Script(site_.Folder(), images_ + steps, 400, 240);
  }

  /// The transcript's last line.
  static std::string Last_Line(const std::string& transcript) {
    const std::size_t end = transcript.rfind('\n', transcript.size() - 2);
    return transcript.substr(end == std::string::npos ? 0 : end + 1);
  }

  SmallSite site_;
  std::string images_;
};

TEST_F(HistorySteps, TheTranscriptTellsWhatWasTakenBack) {
  const PlayedSession played =
      Play("history on\nclick Picture1(0) 50 60\nkey U\nundo\nundo\nredo\nprint Check1(0)\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::string wanted =
      "undo \"Key U\"\nundo \"Click in image 0\"\nredo \"Click in image 0\"\nCheck1(0) = 1\n";
  EXPECT_TRUE(played.transcript.ends_with(wanted)) << played.transcript;
}

TEST_F(HistorySteps, WithoutHistoryOnTheyFailWithTheReason) {
  for (const char* step : {"undo", "redo", "takeback"}) {
    const PlayedSession played = Play(std::string("key U\n") + step + "\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_NE(played.reason.find(std::string(step) + " needs a history: play history on first"),
              std::string::npos)
        << played.reason;
  }
}

TEST_F(HistorySteps, WithNothingToUndoTheStepFails) {
  const PlayedSession played = Play("history on\nundo\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.reason.find("there is nothing for undo to do"), std::string::npos);
}

TEST_F(HistorySteps, InsideARunningCommandNothingIsUndone) {
  const PlayedSession played =
      Play("history on\nkey U\nduring 1 try undo\nmenu Center_to_xyz_click\nprint Solution3D\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(Last_Line(played.transcript), "Solution3D = 0 0 1\n");
}

TEST_F(HistorySteps, EventsInsideACommandBelongToItsStep) {
  const PlayedSession played = Play(
      "history on\nduring 1 set Text4 99\nmenu Center_to_xyz_click\nundo\nprint Text4\n"
      "try undo\nprint Text4\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("undo \"Center images to space intersection (X,Y,Z) solution\""),
            std::string::npos);
  EXPECT_EQ(Last_Line(played.transcript), "Text4 = 23\n");
}

TEST_F(HistorySteps, TakeBackTellsFileAndLine) {
  const PlayedSession played = Play(std::string("history on\n") + kMeasure + "takeback\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::string line = Last_Line(played.transcript);
  EXPECT_TRUE(
      line.starts_with("takeback \"Line taken back from "
                       "c:\\data\\Lehtomaa\\Pistedata\\PointData.txt: 1,"))
      << line;
}

TEST_F(HistorySteps, AHistoryChangesNothingThatIsPlayed) {
  const PlayedSession without = Play(std::string(kMeasure) + "marks Picture1(0)\nprint Label10\n");
  const PlayedSession with =
      Play(std::string("history on\n") + kMeasure + "marks Picture1(0)\nprint Label10\n");
  EXPECT_EQ(without.transcript, with.transcript);
}

TEST_F(HistorySteps, ARecordedUndoPlaysBack) {
  const std::string record = (site_.Folder().Path() / "record.txt").string();
  SessionOptions options;
  options.script = "-";
  options.root = site_.Folder().Path();
  options.width = 400;
  options.height = 240;
  options.record = record;
  std::istringstream in(images_ + "history on\nclick Picture1(0) 50 60\nkey U\nundo\n");
  std::ostringstream out, err;
  EXPECT_EQ(Run_Session(options, {in, out, err}), 0) << err.str();
  const std::string steps = site_.Folder().Read("record.txt");
  EXPECT_NE(steps.find("history on\nclick Picture1(0) 50 60\nkey U\nundo\n"), std::string::npos)
      << steps;
  EXPECT_EQ(Play_Script(site_.Folder(), steps, 400, 240).transcript, out.str());
}

}  // namespace
}  // namespace sylvomex
