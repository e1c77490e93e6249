// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// Pictures of whole windows; only a desktop can make them.
class WindowPictures {
 public:
  virtual ~WindowPictures() = default;

  /// Writes the window ("Form1") as PNG. Throws a std::exception with the reason of a failure.
  virtual void Save_Window(const std::string& form, const std::filesystem::path& file) = 0;
};

}  // namespace sylvomex
