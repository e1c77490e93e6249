// SPDX-License-Identifier: MIT
// The causes behind messages whose fixed text names none: see Screen::Tell_Cause.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace sylvomex {

struct Workspace;

/// A failure as one line: its text and, where the text does not name it, its file's native path.
std::string Cause_Text(const std::exception& failure);

void Tell_Cause(const Workspace& w, std::string_view cause);

/// A message box with OK and the cause behind it.
void Show_With_Cause(const Workspace& w, std::string_view text, std::string_view cause);
void Show_With_Cause(const Workspace& w, std::string_view text, const std::exception& failure);

/// "image 2 (4711)": index and ImageId.
std::string Name_Of_Image(const Workspace& w, int image);

/// Runs action(); when it ends in a RunTimeError, tells what that is about. For errors whose own
/// text, which is told as well, does not say it.
template <class Action>
decltype(auto) About(const Workspace& w, const std::string& what, Action&& action) {
  try {
    return action();
  } catch (const RunTimeError&) {
    Tell_Cause(w, what);
    throw;
  }
}

/// The same for an action on a file whose name stands in another file, the holder.
template <class Action>
decltype(auto) Named_In(const Workspace& w, const std::string& holder, Action&& action) {
  return About(w, "the name stands in " + holder, action);
}

}  // namespace sylvomex
