// SPDX-License-Identifier: MIT
// The windows of the workstation over one block.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/form_window.h"

namespace sylvomex {

/// Sets the look shared by all windows: style, light colours, font. Call once, after creating the
/// application.
void Set_Application_Look();

/// The same with what the operator has chosen for the whole machine, outside the described client
/// areas: letters that are larger than usual. Returns whether the machine's windows are dark.
bool Set_Look_Of_Machine();

/// Turns all windows dark or light.
void Show_Dark(bool dark);

class Windows {
 public:
  /// The block must outlive the windows.
  Windows(OperatorEvents& events, Workspace& w);
  ~Windows();
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

  /// Copies changes in the block to all windows.
  void Mirror();

  /// Called at the end of every Mirror; empty for nothing.
  void When_Mirrored(std::function<void()> mirrored) { mirrored_ = std::move(mirrored); }

  [[nodiscard]] FormWindow& Main() const { return *windows_.front(); }

  /// nullptr for a window that does not exist.
  [[nodiscard]] FormWindow* Find(std::string_view form) const;

 private:
  std::vector<std::unique_ptr<FormWindow>> windows_;  // the main window first: it owns the others
  std::function<void()> mirrored_;
};

}  // namespace sylvomex
