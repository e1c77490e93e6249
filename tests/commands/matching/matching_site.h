// SPDX-License-Identifier: MIT
// A plot with four equal trees, three vertical photographs of it and flat height models.
//
// Cameras 200 m above Z = 0 at X0 = -30, 0 and 30, c = 0.02 m, 10 um pixels: film x =
// 0.02 (X - X0) / (200 - Z), col = 500 + 100000 x, row likewise; the raw files contain the full
// image's 1000 columns and its upper 1000 rows, raw row = 1000 - row. The second photograph is in
// colour. Ground at 2 m, canopy at 12 m everywhere.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "support/recording_screen.h"
#include "support/small_site.h"
#include "workspace/event_dispatch.h"
#include "workspace/start_up.h"

namespace sylvomex {

inline constexpr double kSiteX0[] = {-30, 0, 30};
inline constexpr std::array<Point3D, 4> kSiteTops{
    {{5, 4, 10.9}, {-1, 6, 9.9}, {8, -1, 10.9}, {1, -2, 10.9}}};
inline constexpr Point3D kPlotCentre{3, 3, 2};

inline double Site_Col(int image, const Point3D& p) {
  return 500 + 100000 * 0.02 * (p.X - kSiteX0[image]) / (200 - p.Z);
}
inline double Site_Row(const Point3D& p) { return 500 + 100000 * 0.02 * p.Y / (200 - p.Z); }

/// A site on disk: "c:\data\im0.hdr" to "im2.hdr", "dem.hdr", "chm.hdr" and the colour map.
class MatchingFiles {
 public:
  MatchingFiles() {
    for (int k = 0; k < 3; ++k) Write_Photograph(k);
    Write_Model("dem", 2);
    Write_Model("chm", 12);
    site.Folder().Write("c/data/JetColorMAP.csv", "0,0,0\n255,255,255\n");
  }

  SmallSite site;

 private:
  static SmallImage Photograph(int image) {
    SmallImage photo;
    photo.id = 100 + image;
    photo.colour = image == 1 ? 1 : 0;
    photo.c = 0.02;
    photo.Z0 = 200;
    photo.X0 = kSiteX0[image];
    return photo;
  }

  // A bright cone around each top on a textured ground.
  static std::vector<int> Grey_Values(int image, int side) {
    std::vector<int> grey(static_cast<std::size_t>(side * side));
    for (int i = 0; i < side * side; ++i) grey[static_cast<std::size_t>(i)] = 50 + i * 37 % 23;
    for (const Point3D& top : kSiteTops) {
      const double col = Site_Col(image, top), raw_row = 1000 - Site_Row(top);
      for (int j = static_cast<int>(raw_row) - 14; j < raw_row + 15; ++j) {
        for (int i = static_cast<int>(col) - 14; i < col + 15; ++i) {
          const double distance = std::hypot(i - col, j - raw_row);
          if (distance < 14) {
            grey[static_cast<std::size_t>(j * side + i)] =
                static_cast<int>(60 + 12 * (14 - distance));
          }
        }
      }
    }
    return grey;
  }

  void Write_Photograph(int image) const {
    const SmallImage photo = Photograph(image);
    const std::string name = "im" + std::to_string(image);
    std::string bytes;
    for (const int grey : Grey_Values(image, photo.width)) {
      if (photo.colour == 1) bytes += static_cast<char>(grey - 9);
      bytes += static_cast<char>(grey);
      if (photo.colour == 1) bytes += static_cast<char>(grey);
    }
    site.Folder().Write("c/data/" + name + ".raw", bytes);
    site.Folder().Write("c/data/" + name + ".hdr",
                        SmallSite::Header_Text(photo, "c:\\data\\" + name + ".raw"));
  }

  // A model of one cell of 1 km.
  void Write_Model(const std::string& name, float height) const {
    site.Folder().Write("c/data/" + name + ".hdr",
                        "1\n1\n0\n500\n1000\n-99\nc:\\data\\" + name + ".bin\n");
    site.Folder().Write("c/data/" + name + ".bin",
                        {reinterpret_cast<const char*>(&height), sizeof height});
  }
};

/// Steps of a script that load the site's images and models.
inline std::string Loading_Steps() {
  std::string steps;
  for (const char* name : {"im0", "im1", "im2"}) {
    steps += std::string("file c:\\data\\") + name + ".hdr\nmenu Add_images_to_set\n";
  }
  return steps +
         "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
         "file c:\\data\\chm.hdr\nmenu Add_Raster_CHM\n";
}

/// The site in a started workspace: images and models loaded, the plot centre read, the solution at
/// the first tree's top.
class MatchingSite : public testing::Test {
 protected:
  MatchingSite() {
    w.Form1.ClientWidth = 1280;
    w.Form1.ClientHeight = 1024;
    Start_Workspace(w);
    for (const char* name : {"im0", "im1", "im2"}) Load("Add_images_to_set", name);
    screen.inputs.emplace_back("0");
    Load("Add_height_Model", "dem");
    Load("Add_Raster_CHM", "chm");
    Set_Solution(kPlotCentre);
    Choose("Read_plot_center_data");
    Set_Solution(kSiteTops[0]);
    w.Form1.Text4.Text = "6";
    w.Form1.Text10.Text = "1";
    screen.messages.clear();
  }

  EventOutcome Choose(const std::string& item) {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Menu;
    event.control = item;
    return Handle_Event(w, event);
  }

  void Set_Solution(const Point3D& point) {
    w.Solution3D = point;
    w.SolutionValid = true;
  }

  /// Sets film observations of the solution in all boxes, so that the panes can zoom.
  void Observe_All() {
    for (int k = 0; k < w.ImageCount; ++k) {
      w.Form1.Text1(2 * k).Text = "0.001";
      w.Form1.Text1(2 * k + 1).Text = "0.0005";
    }
  }

  void Untick_All() {
    for (int k = 0; k < 9; ++k) w.Form1.Check1(k).Value = 0;
  }

  [[nodiscard]] std::string Data(const std::string& name) const {
    return files.site.Folder().Read("c/data/" + name);
  }
  [[nodiscard]] bool Has_Data(const std::string& name) const {
    return files.site.Folder().Has("c/data/" + name);
  }
  void Write_Data(const std::string& name, const std::string& content) const {
    files.site.Folder().Write("c/data/" + name, content);
  }

  /// Cuts the templates without the message about empty boxes.
  void Capture() {
    Observe_All();
    Choose("Capture_templates");
  }

  MatchingFiles files;
  RecordingScreen screen;
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(files.site.Drives(), screen);
  Workspace& w = *block;
  MatchingState& m = w.Matching;

 private:
  void Load(const std::string& item, const std::string& name) {
    screen.files.emplace_back("c:\\data\\" + name + ".hdr");
    Choose(item);
  }
};

}  // namespace sylvomex
