// SPDX-License-Identifier: MIT
#include "faults/random_screen.h"

#include <utility>
#include <vector>

namespace sylvomex {
namespace {

const std::vector<std::string> kEast{"0", "3", "-4.5", "2516450", "1005"};
const std::vector<std::string> kNorth{"0", "2", "5.25", "6857050", "2000"};
const std::vector<std::string> kHeights{"2", "10.9", "0", "110", "160"};
const std::vector<std::string> kSmall{"0", "1", "2", "3", "5", "8", "10", "0.5", "20", "60"};
const std::vector<std::string> kOdd{"",      " ",     "-1",          "-32769",   "abc", "1e300",
                                    "nan",   "1,2",   "99999999999", "0.000001", "-0",  "\"",
                                    "c:\\x", "65536", "1e-300",      "1;2;3",    "å"};

}  // namespace

std::string RandomScreen::Some_File() {
  const bool is_sound = Below(4) != 0;
  const std::vector<std::string>& names = is_sound ? site_.Sound() : site_.Damaged();
  return names[static_cast<std::size_t>(Below(static_cast<int>(names.size())))];
}

std::string RandomScreen::Some_Text(std::string_view prompt, std::string_view preset) {
  const auto one_of = [&](const std::vector<std::string>& texts) {
    return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
  };
  const auto asks = [&](const char* word) { return prompt.find(word) != std::string_view::npos; };
  if (Below(12) == 0) return one_of(kOdd);
  if (!preset.empty() && Below(2) == 0) return std::string(preset);
  if (asks("ile") && Below(2) == 0) return Some_File();
  if (asks("extent")) return one_of(kSmall);  // a coordinate as an extent takes all of the memory
  if (asks("X")) return one_of(kEast);
  if (asks("Y")) return one_of(kNorth);
  if (asks("Z")) return one_of(kHeights);
  return one_of(kSmall);
}

std::optional<std::string> RandomScreen::Planned() {
  if (planned.empty()) return std::nullopt;
  std::string answer = std::move(planned.front());
  planned.pop_front();
  return answer;
}

void RandomScreen::Let_Something_Happen(int one_in) {
  if (on_service && Below(one_in) == 0) on_service();
}

Answer RandomScreen::Message_Box(std::string_view, Buttons buttons, std::string_view) {
  ++dialogs;
  if (buttons == Buttons::Ok) return Answer::Ok;
  const bool agrees = Below(3) != 0;
  if (buttons == Buttons::YesNo) return agrees ? Answer::Yes : Answer::No;
  return agrees ? Answer::Ok : Answer::Cancel;
}

std::optional<std::string> RandomScreen::Input_Box(std::string_view prompt, std::string_view,
                                                   std::string_view preset) {
  ++dialogs;
  if (auto answer = Planned()) return answer;
  Let_Something_Happen(40);
  return Below(15) == 0 ? std::nullopt : std::optional(Some_Text(prompt, preset));
}

std::optional<std::string> RandomScreen::File_Dialog(const FileQuestion&) {
  ++dialogs;
  if (auto answer = Planned()) return answer;
  Let_Something_Happen(40);
  return Below(12) == 0 ? std::nullopt : std::optional(Some_File());
}

}  // namespace sylvomex
