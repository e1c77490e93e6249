// SPDX-License-Identifier: MIT
// The operator's side of the desktop: dialogs on the screen.
#pragma once

#include <QSet>
#include <QString>
#include <QWidget>
#include <chrono>
#include <functional>
#include <map>
#include <random>

#include "desktop/tone_player.h"
#include "platform/drive_map.h"
#include "workspace/state/screen.h"

namespace sylvomex {

class DesktopScreen : public Screen {
 public:
  /// What the screen asks of the desktop that owns it.
  struct Owner {
    std::function<void()> show_block;        // brings the windows up to date
    std::function<QWidget*()> front_window;  // owner of the dialogs; may answer null
    std::function<void()> end;               // ends the program
  };

  DesktopScreen(const DriveMap& drives, Owner owner);

  /// A new event of the operator: messages that were silenced are shown again.
  void Begin_Outer_Event();

  Answer Message_Box(std::string_view text, Buttons buttons = Buttons::Ok,
                     std::string_view title = {}) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title = {},
                                       std::string_view preset = {}) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Beep(int frequency, int duration) override;
  void Clear_Clipboard() override;
  void Copy_To_Clipboard(const PaneBitmap& picture) override;
  void Service_Events() override;
  double Clock() override;
  double Random() override;
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override;
  void End_Session() override;

 private:
  [[nodiscard]] QString Start_Folder(const FileQuestion& question) const;

  DriveMap drives_;
  Owner owner_;
  TonePlayer tones_;
  std::map<QString, int> times_shown_;  // message texts since the outer event began
  QSet<QString> silenced_;
  QString last_folder_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::mt19937_64 generator_{std::random_device{}()};
};

}  // namespace sylvomex
