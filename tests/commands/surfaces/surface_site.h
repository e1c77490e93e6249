// SPDX-License-Identifier: MIT
// Photographs of a horizontal plane at 445 m that noise covers.
//
// Image k is taken from X0 = 20 k, 1000 m above the plane, with c = 0.1 m and 10 um pixels: a
// pixel is 0.1 m on the plane and image k shows the noise shifted by 200 k columns. Film (0, 0) is
// column 600, row 200 from the bottom. For a point at height Z the shift between neighbours is
// s = 200000 / (1445 - Z) columns.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {

inline std::uint8_t Plane_Noise(int col, int raw_row) {
  std::uint64_t z = static_cast<std::uint64_t>(col + 5000) * 0x9E3779B97F4A7C15U +
                    static_cast<std::uint64_t>(raw_row) * 0xD1B54A32D192ED03U;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return static_cast<std::uint8_t>(z >> 56);
}

class SurfaceSite {
 public:
  static constexpr int kWidth = 1200, kHeight = 400;

  /// colours: ColorFlag of each image.
  explicit SurfaceSite(const std::vector<int>& colours = {0, 0, 0}) {
    site_.Folder().Make_Folder("c/temp");
    std::string map;
    for (int row = 1; row <= 64; ++row) map += std::to_string(row) + ",7,9\n";
    Write("c/data/JetColorMAP.csv", map);
    for (std::size_t k = 0; k < colours.size(); ++k) {
      Write_Image(static_cast<int>(k), colours[k], [k](int col, int raw_row) {
        return Plane_Noise(col + 200 * static_cast<int>(k), raw_row);
      });
      // The third colour flag has no picture, and adding such an image fails at that.
      load_ += "file c:\\data\\im" + std::to_string(k) + ".hdr\n" + (colours[k] > 1 ? "try " : "") +
               "menu Add_images_to_set\n";
    }
  }

  /// Writes the image with the grey values of a function of column and raw row.
  template <class Grey>
  void Write_Image(int k, int colour, const Grey& grey) const {
    SmallImage image;
    image.id = 7000 + k;
    image.width = image.full_width = kWidth;
    image.height = image.full_height = kHeight;
    image.colour = colour;
    image.start_col = 600;
    image.start_row = 200;
    image.a0 = 600;
    image.b0 = 200;
    image.X0 = 20.0 * k;
    image.Z0 = 1445;
    std::string bytes;
    for (int row = 0; row < kHeight; ++row) {
      for (int col = 0; col < kWidth; ++col) {
        if (colour == 1) bytes += '\x11';
        bytes += static_cast<char>(grey(col, row));
        if (colour == 1) bytes += '\x63';
      }
    }
    const std::string name = "im" + std::to_string(k);
    Write("c/data/" + name + ".raw", bytes);
    Write("c/data/" + name + ".hdr", SmallSite::Header_Text(image, "c:\\data\\" + name + ".raw"));
  }

  void Write(const std::string& name, const std::string& content) const {
    site_.Folder().Write(name, content);
  }

  [[nodiscard]] bool Has(const std::string& name) const {
    return File_Exists(site_.Folder().File(name));
  }
  [[nodiscard]] std::string Text(const std::string& name) const {
    return Read_Whole_File(site_.Folder().File(name));
  }
  [[nodiscard]] std::vector<std::string> Lines(const std::string& name) const {
    std::istringstream text(Text(name));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  /// Plays a script with the images loaded and the solution at 0, 0 and the given height.
  [[nodiscard]] PlayedSession Play(const std::string& script, double Z = 445) const {
    return Play_Script(site_.Folder(),
                       load_ + "input 0\ninput 0\ninput " + std::to_string(Z) +
                           "\nmenu Set_3D_solution\n" + script,
                       kWindowWidth, kWindowHeight);
  }

  /// The same without a solution.
  [[nodiscard]] PlayedSession Play_Without_Solution(const std::string& script) const {
    return Play_Script(site_.Folder(), load_ + script, kWindowWidth, kWindowHeight);
  }

  [[nodiscard]] const std::filesystem::path& Path() const { return site_.Folder().Path(); }

  void Forget_Images_From(std::size_t k) {
    const auto at = load_.find("file c:\\data\\im" + std::to_string(k));
    load_.resize(at);
  }

 private:
  // Panes that the rasters fill.
  static constexpr double kWindowWidth = 1000, kWindowHeight = 440;

  SmallSite site_;
  std::string load_;
};

/// What a `print NAME` left in a transcript.
inline std::string Printed(const PlayedSession& played, const std::string& name) {
  const std::string head = "\n" + name + " = ";
  const std::size_t at = ("\n" + played.transcript).rfind(head);
  if (at == std::string::npos) return "not printed";
  const std::string rest = ("\n" + played.transcript).substr(at + head.size());
  return rest.substr(0, rest.find('\n'));
}

/// Lines of a transcript that begin with a text.
inline std::vector<std::string> Lines_With(const PlayedSession& played, const std::string& start) {
  std::istringstream text(played.transcript);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with(start)) lines.push_back(line);
  }
  return lines;
}

}  // namespace sylvomex
