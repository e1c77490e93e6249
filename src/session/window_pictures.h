// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// Pictures of whole windows, which only a desktop can make.
class WindowPictures {
 public:
  virtual ~WindowPictures() = default;

  /// Writes the window ("Form1") as PNG. Raises a std::exception that tells why it could not.
  virtual void Save_Window(const std::string& form, const std::filesystem::path& file) = 0;
};

}  // namespace sylvomex
