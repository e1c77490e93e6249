// SPDX-License-Identifier: MIT
// Screen for the desktop: dialogs on the display.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <random>

#include "desktop/repeated_messages.h"
#include "desktop/tone_player.h"
#include "platform/drive_map.h"
#include "state/screen.h"

namespace sylvomex {

class DesktopScreen : public Screen {
 public:
  /// Callbacks into the desktop that owns the screen.
  struct Owner {
    std::function<void()> show_block;        // updates the windows
    std::function<QWidget*()> front_window;  // parent of the dialogs; may return nullptr
    std::function<void()> end;               // ends the program
  };

  DesktopScreen(const DriveMap& drives, Owner owner);

  /// Folders by title of the file dialog in which a file was chosen there last. Such a dialog opens
  /// in its folder again.
  using Folders = std::map<QString, QString>;
  void Begin_In(Folders folders) { folders_ = std::move(folders); }
  [[nodiscard]] const Folders& Last_Folders() const { return folders_; }

  /// From here on what comes of a dialog that was dismissed is told by that instead of in a box,
  /// and a message that an event repeats is shown once, and once more with its number at the end.
  void Be_Calm(std::function<void(const std::string&)> tell);

  /// Begins a new operator event: suppressed messages are shown again.
  void Begin_Outer_Event();
  void End_Outer_Event();

  void Tell_Cause(std::string_view cause) override;
  Answer Message_Box(std::string_view text, Buttons buttons = Buttons::Ok,
                     std::string_view title = {}) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title = {},
                                       std::string_view preset = {}) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Beep(int frequency, int duration) override;
  void Clear_Clipboard() override;
  void Copy_To_Clipboard(const PaneBitmap& picture) override;

  /// Commands may call this after every triangle of a model: inside an event, more than kServicings
  /// calls within kServicingSpan wait for the next span.
  void Service_Events() override;

  /// Another clock than that of the machine for the spans of the servicing.
  void Use_Clock(std::function<std::chrono::steady_clock::time_point()> now) {
    now_ = std::move(now);
  }

  double Clock() override;
  double Random() override;
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override;
  void End_Session() override;

 private:
  using SteadyClock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kServicingSpan{16};
  static constexpr int kServicings = 20;

  [[nodiscard]] bool Tells_Dismissal(bool is_failure);
  void Tell_Quiet_End();
  Answer Show_Message(const QString& text, Buttons buttons, const QString& title,
                      const QString& causes);
  [[nodiscard]] bool Has_Serviced_Enough();
  [[nodiscard]] QString Start_Folder(const FileQuestion& question) const;

  DriveMap drives_;
  Owner owner_;
  TonePlayer tones_;
  std::map<QString, int> times_shown_;  // by message text, since the outer event began
  QSet<QString> silenced_;
  QStringList causes_;  // of the next message box
  std::function<void(const std::string&)> tell_;
  RepeatedMessages repeated_;
  std::optional<QString> dismissed_;  // title of the last dialog, when it was dismissed
  QString last_folder_;
  Folders folders_;
  bool in_event_ = false;
  std::function<SteadyClock::time_point()> now_ = SteadyClock::now;
  SteadyClock::time_point span_start_;
  int serviced_in_span_ = 0;
  SteadyClock::time_point start_ = SteadyClock::now();
  std::mt19937_64 generator_{std::random_device{}()};
};

}  // namespace sylvomex
