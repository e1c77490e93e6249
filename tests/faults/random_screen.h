// SPDX-License-Identifier: MIT
// A screen whose operator answers at random.
#pragma once

#include <deque>
#include <functional>
#include <random>
#include <string>

#include "faults/random_site.h"
#include "state/screen.h"

namespace sylvomex {

class RandomScreen : public Screen {
 public:
  RandomScreen(const RandomSite& site, std::mt19937& random) : site_(site), random_(random) {}

  std::deque<std::string> planned;   // answers that come before the random ones
  std::function<void()> on_service;  // called at some of the event servicings and dialogs
  long dialogs = 0, errors = 0;
  bool ended = false;

  [[nodiscard]] std::string Some_File();
  [[nodiscard]] std::string Some_Text(std::string_view prompt, std::string_view preset);

  Answer Message_Box(std::string_view, Buttons buttons, std::string_view) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion&) override;
  void Beep(int, int) override {}
  void Clear_Clipboard() override {}
  void Copy_To_Clipboard(const PaneBitmap&) override {}
  void Service_Events() override { Let_Something_Happen(12); }
  double Clock() override { return clock_ += 0.05; }
  double Random() override { return std::uniform_real_distribution(0.0, 1.0)(random_); }
  void Report_Error(std::string_view, std::string_view, std::string_view) override { ++errors; }
  void End_Session() override { ended = true; }

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  std::optional<std::string> Planned();
  void Let_Something_Happen(int one_in);

  const RandomSite& site_;
  std::mt19937& random_;
  double clock_ = 0;
};

}  // namespace sylvomex
