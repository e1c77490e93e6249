// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

#include "session/journal.h"
#include "state/forwarding_screen.h"

namespace sylvomex {

/// Forwards everything to another screen and writes the operator's answers to a journal. The random
/// numbers are its own, so that a repeated session draws the same ones and goes on behind them.
class JournalScreen : public ForwardingScreen {
 public:
  /// screen and journal must outlive it.
  JournalScreen(Screen& screen, Journal& journal, std::uint32_t seed)
      : ForwardingScreen(screen), journal_(journal), generator_(seed) {}

  void Tell_Cause(std::string_view cause) override;
  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Service_Events() override;
  double Random() override;
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override;
  void End_Session() override;

 private:
  Journal& journal_;
  std::mt19937 generator_;
};

}  // namespace sylvomex
