// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex::demo {

/// A folder of its own for temporary files that goes with the scope. RunTimeError when it cannot be
/// made.
class TemporarySite {
 public:
  explicit TemporarySite(const std::string& prefix);
  ~TemporarySite();
  TemporarySite(const TemporarySite&) = delete;
  TemporarySite& operator=(const TemporarySite&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace sylvomex::demo
