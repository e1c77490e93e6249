// SPDX-License-Identifier: MIT
// A small site with something for every command, and damaged copies of all of it.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "support/small_site.h"

namespace sylvomex {

class RandomSite {
 public:
  /// seed: of the damages.
  explicit RandomSite(std::uint32_t seed);

  [[nodiscard]] const TemporaryFolder& Folder() const { return site_.Folder(); }
  [[nodiscard]] DriveMap Drives() const { return site_.Drives(); }

  /// Drive names: the sound files, those that are damaged, missing or no files at all.
  [[nodiscard]] const std::vector<std::string>& Sound() const { return sound_; }
  [[nodiscard]] const std::vector<std::string>& Damaged() const { return damaged_; }

 private:
  void Write_Photographs() const;
  void Write_Height_Models() const;
  void Write_Lidar() const;
  void Write_Pair() const;
  void Write_Map() const;
  void Write_Lists() const;
  void List_Sound_Files();
  void Write_Damaged_Copies(std::mt19937& random);

  SmallSite site_;
  std::vector<std::string> sound_, damaged_;
};

}  // namespace sylvomex
