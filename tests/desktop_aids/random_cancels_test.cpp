// SPDX-License-Identifier: MIT
// Commands of the windows cancelled at random looks: the block and the files are as before, the
// desktop goes on, and what was recorded plays back to the same block. $SYLVOMEX_CANCELS: how many.
#include <cstdlib>
#include <random>
#include <sstream>

#include "aids_fixture.h"
#include "history/measuring_dump.h"
#include "platform/work_meter.h"
#include "session/cancelling.h"

namespace sylvomex {
namespace {

/// Cancels at the look of a number, counted from 1.
struct CancelAtLook : WorkWatcher {
  long left;
  explicit CancelAtLook(long look) : left(look) {}
  void Look(double) override {
    if (--left == 0) throw Cancelled{};
  }
};

class RandomWindowCancels : public DesktopTest {
 protected:
  RandomWindowCancels() {
    desktop_ = std::make_unique<Desktop>(DesktopOptions{
        site_.Drives(), QSize(900, 600), site_.Folder().Path() / "record.txt", [] {}, false});
    desktop_->Start();
    Add_Two_Images();
    aids_.emplace(*desktop_);
    site_.Folder().Make_Folder("d");
    std::string circles, lines;
    for (int k = 0; k < 9; ++k) circles += k % 2 == 0 ? "-9,-9,0,1,30\n" : "9,9,0,2,30\n";
    for (int k = 0; k < 9000; ++k) lines += "1,10,10,20,15\n";
    site_.Folder().Write("c/data/circles.txt", circles);
    site_.Folder().Write("c/data/lines.txt", lines);
  }

  /// Runs a command that asks for a file; true when it was cancelled.
  bool Run(const char* command, const char* file, long look) {
    dialogs_.files.push_back((site_.Folder().Path() / "c/data" / file).string());
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Command;
    event.control = command;
    CancelAtLook watcher(look);
    const WatchedWork watched(&watcher);
    desktop_->Dispatch(event);
    return watcher.left <= 0;
  }

  Files Present_Files() {
    return Files_In(site_.Folder().Path(), {"", "", "", {"record.txt"}, ""});
  }

  std::optional<Aids> aids_;
};

TEST_F(RandomWindowCancels, LeaveTheBlockAndTheFilesAndPlayBack) {
  const char* const text = std::getenv("SYLVOMEX_CANCELS");
  const int count = text != nullptr ? std::atoi(text) : 12;
  std::mt19937 random(5);
  int cancelled = 0;
  for (int n = 0; n < count; ++n) {
    const std::string block = Block_Dump(w());
    const Files files = Present_Files();
    const bool is_mask = random() % 2 == 0;
    const auto look = static_cast<long>(1 + random() % (1U << random() % 12));
    if (Run(is_mask ? "Create_Zonal" : "Plot_3D_line_segments",
            is_mask ? "circles.txt" : "lines.txt", look)) {
      ++cancelled;
      EXPECT_EQ(Block_Dump(w()), block) << "look " << look;
      EXPECT_TRUE(is_mask || Present_Files() == files) << "look " << look;
    }
    ASSERT_FALSE(desktop_->Is_Busy());
    EXPECT_EQ(w().Form1.MousePointer, PointerShape::Normal);
    EXPECT_TRUE(dialogs_.files.empty());
    Click_Pane(0, 50 + n, 60);
  }
  EXPECT_GT(cancelled, 0);
  std::ostringstream state;
  state << w().Form1.Text1(0).Text;
  const std::size_t marks = w().Form1.Picture1(0).marks.size();
  aids_.reset();
  desktop_.reset();
  const PlayedSession played = Play_Script(
      site_.Folder(), site_.Folder().Read("record.txt") + "print Text1(0)\nmarks Picture1(0)\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::size_t at = played.transcript.rfind("Text1(0) = ");
  ASSERT_NE(at, std::string::npos);
  const std::string rest = played.transcript.substr(at);
  EXPECT_EQ(rest.substr(0, rest.find('\n')), "Text1(0) = " + state.str());
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(rest, '\n')), marks + 1);
}

}  // namespace
}  // namespace sylvomex
