// SPDX-License-Identifier: MIT
// The level pair as files, and scripts over it. Grey: the left raster holds its column, the right
// one its row. With the window of 150 x 130 pixels the picture has 100 x 100.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "platform/number_text.h"
#include "stereo/level_pair.h"
#include "stereo/pair_file.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {

struct DrawnLine {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  std::string pen;  // "R G B WIDTH"
};

/// The lines among the marks of a transcript, in their order.
inline std::vector<DrawnLine> Drawn_Lines(const std::string& transcript) {
  std::vector<DrawnLine> lines;
  std::istringstream in(transcript);
  for (std::string row; std::getline(in, row);) {
    std::istringstream words(row);
    std::string kind;
    DrawnLine line;
    if (words >> kind && kind == "line" && words >> line.x1 >> line.y1 >> line.x2 >> line.y2) {
      std::getline(words >> std::ws, line.pen);
      lines.push_back(line);
    }
  }
  return lines;
}

/// Positions agree to a millionth of a pixel.
inline void Expect_Lines(const std::string& transcript, const std::vector<DrawnLine>& wanted) {
  const std::vector<DrawnLine> lines = Drawn_Lines(transcript);
  ASSERT_EQ(lines.size(), wanted.size()) << transcript;
  for (std::size_t k = 0; k < lines.size(); ++k) {
    EXPECT_NEAR(lines[k].x1, wanted[k].x1, 1e-6) << k;
    EXPECT_NEAR(lines[k].y1, wanted[k].y1, 1e-6) << k;
    EXPECT_NEAR(lines[k].x2, wanted[k].x2, 1e-6) << k;
    EXPECT_NEAR(lines[k].y2, wanted[k].y2, 1e-6) << k;
    EXPECT_EQ(lines[k].pen, wanted[k].pen) << k;
  }
}

class StereoSite : public testing::Test {
 protected:
  StereoSite() {
    Write_Pair("pair.txt", Level_Pair());
    site.Folder().Write("c/data/left.raw", Raster(true, 1));
    site.Folder().Write("c/data/right.raw", Raster(false, 1));
  }

  /// The pair's file with its own start point.
  static std::string Pair_Text(const StereoPair& pair) {
    std::string text = Pair_File_Text(pair);
    text.erase(text.rfind('\n', text.size() - 2) + 1);
    return text + Plain_Text(pair.start.X) + "," + Plain_Text(pair.start.Y) + "," +
           Plain_Text(pair.start.Z) + "\n";
  }

  void Write_Pair(const std::string& name, const StereoPair& pair) const {
    site.Folder().Write("c/data/" + name, Pair_Text(pair));
  }

  static std::string Raster(bool columns, int bytes_a_pixel) {
    std::string raster;
    for (int row = 0; row < 300; ++row) {
      for (int col = 0; col < 400; ++col) {
        for (int band = 0; band < bytes_a_pixel; ++band) {
          raster += static_cast<char>(((columns ? col : row) + 100 * band) % 256);
        }
      }
    }
    return raster;
  }

  static constexpr const char* kOpened =
      "resize Form5 150 130\nmenu Open_Stereo_window\n"
      "file c:\\data\\pair.txt\nmenu Form5.Open_Pair\n";

  PlayedSession Play(const std::string& script) const { return Play_Script(site.Folder(), script); }

  /// With the pair open; the transcript begins after its opening.
  PlayedSession Play_Opened(const std::string& script) const {
    PlayedSession played = Play(kOpened + ("say begin\n" + script));
    const std::size_t begin = played.transcript.find("say begin\n");
    if (begin == std::string::npos) {
      ADD_FAILURE() << played.reason << played.transcript;
      return played;
    }
    played.transcript.erase(0, begin + 10);
    return played;
  }

  static bool Has(const PlayedSession& played, const std::string& text) {
    return played.transcript.find(text) != std::string::npos;
  }

  SmallSite site;
};

}  // namespace sylvomex
