// SPDX-License-Identifier: MIT
#include "commands/crowns/crown_intersection.h"

#include "state/workspace.h"

#include <optional>
#include <string>
#include <utility>

#include "commands/lidar/lidar_inputs.h"
#include "crowns/crown_list.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/line_count.h"
#include "services/progress.h"

namespace sylvomex {
namespace {

constexpr const char* kCrownFile = "c:\\data\\exotics\\Exotics.csv";
constexpr const char* kHitFile = "c:\\data\\Exotics\\Output.txt";
constexpr std::size_t kLongText = std::size_t{1} << 22;  // characters held before they are written

// Whole lines on their way to a file; what is held is written at the latest when it ends.
class HeldLines {
 public:
  explicit HeldLines(FilePath file) : file_(std::move(file)) { Write_Whole_File(file_, ""); }

  void Add(const std::string& line) {
    held_ += line;
    if (held_.size() >= kLongText) Write();
  }

  void Write() {
    const std::string lines = std::exchange(held_, {});
    if (!lines.empty()) Append_To_File(file_, lines);
  }

 private:
  FilePath file_;
  std::string held_;
};

// The tile that was read last and the places of its echoes.
class PresentTile {
 public:
  PresentTile(Workspace& w, std::string prefix)
      : w_(w), prefix_(std::move(prefix)), name_(prefix_ + "000_000.bin") {}

  // False when the crown lies on another tile and that one has no pulse.
  bool Go_To(const ListedCrown& crown) {
    const std::string name = Tile_Name(prefix_, Campaign::Als2006, crown.X, crown.Y);
    if (name == name_) return true;
    name_ = name;
    return Read_Tile(w_, Campaign::Als2006, w_.Drives.Locate(name)) != 0;
  }

  // Another command may have read another tile into the table meanwhile.
  PulsePlaces& Places() {
    if (!places_ || version_ != w_.LidarPulses.Version()) {
      version_ = w_.LidarPulses.Version();
      places_.emplace(w_.LidarPulses);
    }
    return *places_;
  }

 private:
  Workspace& w_;
  std::string prefix_;
  std::string name_;
  std::optional<PulsePlaces> places_;
  std::uint64_t version_ = 0;
};

void List_Hits(Workspace& w, const ListedCrown& crown, PresentTile& tile, HeldLines& lines) {
  std::vector<std::int32_t> pulses;
  tile.Places().Near(crown, pulses);
  for (const std::int32_t i : pulses) {
    const LidarPulse pulse = w.LidarPulses(i);
    const SlotsInside inside = Slots_Inside(pulse, crown);
    if (inside.count > 0) lines.Add(Hit_Line(crown, pulse, inside));
  }
}

void List_All_Hits(Workspace& w, ListReader& list, PresentTile& tile, HeldLines& lines) {
  Progress progress(w);
  WorkMeter meter(Lines_To_Come(w.Drives.Locate(kCrownFile)));
  for (int row = 1; !list.At_End(); ++row) {
    const ListedCrown crown = Read_Listed_Crown(list);
    progress.Report(Plain_Text(row));
    meter.Task();
    if (!tile.Go_To(crown)) return;
    List_Hits(w, crown, tile, lines);
  }
}

}  // namespace

void Crown_Intersection_For_LiDAR(Workspace& w) {
  PresentTile tile(w, Read_Tile_Prefix(w, Campaign::Als2006));
  ListReader list(w.Drives.Locate(kCrownFile));
  HeldLines lines(w.Drives.Locate(kHitFile));
  try {
    List_All_Hits(w, list, tile, lines);
  } catch (...) {
    lines.Write();
    throw;
  }
  lines.Write();
}

void Find_And_Match_In_Lidar(Workspace& w) { w.screen->Message_Box("Routine disabled"); }

}  // namespace sylvomex
