// SPDX-License-Identifier: MIT
// Random sessions of measuring over three small images.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace sylvomex {

/// One event with the answers of its dialogs.
struct SessionEvent {
  std::vector<std::string> answers;  // steps
  std::string step;
};

class RandomSession {
 public:
  explicit RandomSession(std::uint32_t seed) : random_(seed) {}

  /// Three images, then `groups` random doings, also undo, redo and lines taken back when asked
  /// for.
  std::vector<SessionEvent> Events(int groups, bool with_undo) {
    events_.clear();
    doings_ = with_undo ? 16 : 11;
    if (with_undo) Add("history on");
    for (const char* name : {"a", "b", "c"}) {
      Add("menu Add_images_to_set", {std::string("file c:\\data\\") + name + ".hdr"});
    }
    for (int i = 0; i < groups; ++i) Add_Group();
    return events_;
  }

  int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

 private:
  void Add(std::string step, std::vector<std::string> answers = {}) {
    events_.push_back({std::move(answers), std::move(step)});
  }
  std::string Number(int n) { return std::to_string(Below(n)); }

  void Click(int image) {
    Add("click Picture1(" + std::to_string(image) + ") " + Number(50) + "." + Number(10) + " " +
        Number(50));
  }
  void Set_Point() {
    Add("menu Set_3D_solution", {"input " + Number(40), "input " + Number(40), "input 3"});
  }
  void Save() {
    Add("menu Save_measured_point");
    Add("set Form3.Text4 \"tree " + Number(1000) + "\"");
    Add("press Form3.Accept_And_Save_Button");
  }
  void Intersect() {
    Click(0);
    Click(1 + Below(2));
    Add("menu Point_Intersection");
  }
  void Plot_Points() {
    Add("menu Plot_Point_Set");
    Add("menu Save_measured_point");  // a step beside the lines and the marks
  }
  void Polygon() {
    Add("menu Draw_Polygon");
    for (int i = 0; i < 3; ++i) Click(0);
    Add("menu Draw_Polygon");
  }
  void Tie_Point() {
    Add("menu Measure_Tie_and_CP");
    Add("click Picture1(" + Number(3) + ") " + Number(50) + " " + Number(50),
        {"input " + Number(100)});
    Add("menu Measure_Tie_and_CP");
  }

  void Add_Group() {
    switch (Below(doings_)) {
      case 0:
        return Set_Point();
      case 1:
      case 2:
        return Intersect();
      case 3:
      case 4:
        return Save();
      case 5:
        return Add(std::string("key ") + "UDNSEW"[Below(6)]);
      case 6:
        return Add("set Text" + std::to_string(4 + Below(3)) + " " + Number(50));
      case 7:
        return Polygon();
      case 8:
        // An undone mode would leave its answer for another dialog.
        return doings_ == 11 ? Tie_Point() : Plot_Points();
      case 9:
        return Add(Below(2) == 0 ? "menu Clear_all" : "menu Zoom_1_2");
      case 10:
      case 11:
      case 12:
        if (doings_ > 11) return Add("undo");
        break;
      case 13:
      case 14:
        return Add("redo");
      case 15:
        return Add("takeback");
      default:
        break;
    }
    Add("move Picture1(0) " + Number(50) + " " + Number(50));
  }

  std::mt19937 random_;
  int doings_ = 0;
  std::vector<SessionEvent> events_;
};

/// A script of the first events; the last one with only so many of its answers and one dismissal.
/// answers: of the last event; all when negative.
inline std::string Script_Of(const std::vector<SessionEvent>& events, std::size_t count,
                             int answers = -1) {
  std::string script;
  for (std::size_t i = 0; i < count; ++i) {
    const SessionEvent& event = events[i];
    const bool cut =
        answers >= 0 && i + 1 == count && static_cast<std::size_t>(answers) < event.answers.size();
    const std::size_t given = cut ? static_cast<std::size_t>(answers) : event.answers.size();
    for (std::size_t k = 0; k < given; ++k) script += event.answers[k] + "\n";
    if (cut) script += "cancel\n";
    script += "try " + event.step + "\n";
  }
  return script;
}

}  // namespace sylvomex
