// SPDX-License-Identifier: MIT
// Where the guide tells of a window, a control or a command.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

struct GuidePlace {
  std::string page;     // "user-guide.md"
  std::string heading;  // without its hashes; empty for the top of the page
};

/// The pages of the guide: file and title.
struct GuidePage {
  const char* file;
  const char* title;
};
const std::vector<GuidePage>& Guide_Pages();

/// form: "Form1". control: its name, also with an index or of a part of the aids
/// ("MeasuredDock"); empty for the window itself. An unknown control leads to its window's place.
GuidePlace Place_Of_Control(std::string_view form, std::string_view control);

/// Where the guide tells of the menu of a command of the main window.
GuidePlace Place_Of_Command(std::string_view command);

}  // namespace sylvomex
