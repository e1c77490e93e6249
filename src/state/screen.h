// SPDX-License-Identifier: MIT
// The commands' interface to the operator. The desktop and the scripted sessions each implement it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "imageblock/pane_bitmap.h"

namespace sylvomex {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

struct FileQuestion {
  std::string title;
  std::string filter;  // "HDR files (*.hdr)|*.hdr"
  int filter_index = 1;
  std::string folder;  // start folder, as a drive name; may be empty
};

class Screen {
 public:
  virtual ~Screen() = default;

  /// Tells what is behind the next message box whose text names no cause: file, line, item, image
  /// or quantity. It goes to standard error and into that box's details; texts and transcripts stay
  /// as they are. Several causes before one box belong to it together.
  virtual void Tell_Cause(std::string_view) {}

  virtual Answer Message_Box(std::string_view text, Buttons buttons = Buttons::Ok,
                             std::string_view title = {}) = 0;

  /// The text entered; std::nullopt when the box was dismissed.
  virtual std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title = {},
                                               std::string_view preset = {}) = 0;

  /// The file chosen, as a drive name or a native path; std::nullopt when dismissed.
  virtual std::optional<std::string> File_Dialog(const FileQuestion& question) = 0;

  /// A tone: frequency in hertz, duration in milliseconds.
  virtual void Beep(int frequency, int duration) = 0;

  virtual void Clear_Clipboard() = 0;
  virtual void Copy_To_Clipboard(const PaneBitmap& picture) = 0;

  /// Runs waiting events; another command may begin and end inside this call.
  virtual void Service_Events() = 0;

  /// Seconds on a monotonic clock.
  virtual double Clock() = 0;

  /// Uniform random number in [0, 1).
  virtual double Random() = 0;

  /// Reports an error that ended the command or event handler of that name.
  virtual void Report_Error(std::string_view command, std::string_view text,
                            std::string_view native_path) = 0;

  /// The operator confirmed the exit: no further events must be handled.
  virtual void End_Session() = 0;
};

}  // namespace sylvomex
