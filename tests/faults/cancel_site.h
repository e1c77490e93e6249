// SPDX-License-Identifier: MIT
// Sites on which every command that lasts finds its inputs, and those commands with their answers.
#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "commands/crowns/model_trees.h"
#include "commands/heightmodels/tin_site.h"
#include "commands/matching/matching_site.h"
#include "commands/surfaces/surface_site.h"
#include "support/lidar_files.h"
#include "support/small_site.h"

namespace sylvomex {

/// An event and the answers of its dialogs.
struct PlannedEvent {
  std::string step;
  std::deque<std::string> files{};
  std::deque<std::string> inputs{};
  std::set<std::string> may_change{};  // files that a cancelled one may leave changed
  bool keeps_parts = false;            // cancelled it keeps what was complete, in block and files
};

struct CancelPlan {
  std::vector<PlannedEvent> prologue;
  std::vector<PlannedEvent> events;  // of which some are chosen
};

inline PlannedEvent Solution_Event(double X, double Y, double Z) {
  return {"menu Set_3D_solution", {}, {std::to_string(X), std::to_string(Y), std::to_string(Z)}};
}

/// Images, height models, lidar and overlays around one place.
class WideCancelSite : TreePulses {
 public:
  static constexpr double kX = 2516450, kY = 6857050;

  explicit WideCancelSite(const TemporaryFolder& folder) : folder_(folder) {
    for (const char* name : {"c/temp", "c/apu", "c/als06", "c/als07", "c/data/exotics",
                             "d/data/laser", "c/data/Lehtomaa/Pistedata"}) {
      folder.Make_Folder(name);
    }
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    Write_Photographs();
    Write_Heights();
    Write_Lidar();
    Write_Lists();
  }

  static CancelPlan Plan() {
    const auto data = [](const char* name) { return std::string("c:\\data\\") + name; };
    CancelPlan plan;
    for (const char* name : {"a.hdr", "b.hdr"}) {
      plan.prologue.push_back({"menu Add_images_to_set", {data(name)}});
    }
    plan.prologue.push_back({"menu Add_height_Model", {data("dem.hdr")}, {"0"}});
    plan.prologue.push_back(Solution_Event(kX, kY, 110));
    const std::string X = std::to_string(kX - 20), Y = std::to_string(kY - 20);
    plan.events = {
        {"menu Add_height_Model", {data("dem.hdr")}, {"0"}},
        {"menu Add_Tin", {data("t.nod"), data("t.tri")}},
        {"menu Add_Tin_CHM", {data("t.nod"), data("t.tri")}},
        {"menu TIN2RASTER_Fast"},
        {"command Test_DEM"},
        {"menu Center_to_xyz_click"},
        {"menu Center_To_Sub_c_click"},
        {"menu Zoom1_4"},
        {"menu Print_ALS_near_solution", {}, {}, {"lidtest.txt"}},
        {"menu Plot_ALS_2007", {}, {}, {"lidtest.txt"}},
        {"command Make_Lidar_Intensity_Map"},
        {"command Create_CHM_from_ALS", {}, {X, Y, "40", "40", "2"}},
        {"menu Orto", {}, {"0", X, Y, "60", "60", "0.5", "160", data("o.raw")}},
        {"menu OrthoBlock", {}, {X, Y, "60", "60", "0.5", data("block.raw")}},
        {"command Create_Zonal", {data("circles.txt")}},
        {"menu Write_SUB_images", {data("cuts.txt")}, {}, {"B4_*"}},
        {"menu Plot_3D_line_segments", {data("lines.txt")}},
        {"menu Plot_Field_Plot_Data", {data("plot.txt")}},
        {"command ConvertFieldDataToBinary", {data("plot.txt"), data("plot.bin")}},
        {"menu Plot_Point_Set"},
        {"menu Find_Images_With_XYZ_Sol"},
        {"menu Crown_Intersection_For_LiDAR", {}, {}, {}, true},
        {"command Image_Lidar_Allometry_Algorithm",
         {},
         {},
         {"*_txt.txt", "matlab.txt", "corr_vectN.txt", "weights.txt"},
         true},
        {"menu Add_images_to_set", {data("b.hdr")}},
        {"menu Remove_an_image", {}, {"1"}},
        {"menu Clear_all"},
        {"click Picture1(0) 100 90"},
        {"click Picture1(0) 80 120"},
        {"set Text4 17"},
        {"undo"},
        {"redo"},
    };
    return plan;
  }

 private:
  void Write_Photographs() {
    for (int k = 0; k < 2; ++k) {
      SmallImage image;
      image.id = k + 1;
      image.X0 = kX + 30 * k;
      image.Y0 = kY;
      image.Z0 = 1100;
      const std::string name = k == 0 ? "a" : "b";
      folder_.Write("c/data/" + name + ".raw", SmallSite::Raw_Bytes(image));
      folder_.Write("c/data/" + name + ".hdr",
                    SmallSite::Header_Text(image, "c:\\data\\" + name + ".raw"));
    }
  }

  void Write_Heights() {
    Write_Level_Raster(folder_, "dem", kX - 500, kY - 500, 100, 100);
    Write_Tin(folder_, "t", {kX - 40, kY - 40, kX + 40, kY + 40, 300, 0.1});
  }

  void Write_Lidar() {
    folder_.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder_.Write("c/data/als2007_path.hdr", "c:\\als07\\\n");
    Add_Tree({kX - 10, kY - 5, 24});
    Add_Tree({kX + 10, kY + 5, 20});
    for (const char* campaign : {"c/als06", "c/als07"}) {
      folder_.Write(std::string(campaign) + "/064_070.bin", Counted_Bytes(pulses));
    }
    const std::string place = std::to_string(kX - 10) + "," + std::to_string(kY - 5);
    std::string crowns;
    for (int k = 0; k < 20; ++k) crowns += place + ",125,100,9,6\n";
    folder_.Write("c/data/exotics/Exotics.csv", crowns);
  }

  void Write_Rows(const char* name, std::string text, const std::string& row, int count) {
    for (int k = 0; k < count; ++k) text += row;
    folder_.Write(name, text);
  }

  void Write_Lists() {
    const std::string X = std::to_string(kX), Y = std::to_string(kY);
    Write_Rows("c/data/lines.txt", "", "1," + X + "," + Y + "," + X + "," + Y + "\n", 5000);
    Write_Rows("c/data/plot.txt", "0," + X + "," + Y + ",100,0,0,0\n", "1,2,5,200,18,7,1,1\n",
               5000);
    Write_Rows("c/data/Lehtomaa/Pistedata/PointData.txt", "",
               "1," + X + "," + Y + ",110.00,100.00,7.25,2,0,0," + std::string(30, ' ') + ",\n",
               20000);
    Write_Rows("c/data/circles.txt", "", X + "," + Y + ",100,1,12\n", 4);
    Write_Rows("c/data/cuts.txt", "", X + "," + Y + ",100,9,9,whole\n", 2);
    std::string cameras;
    for (int k = 0; k < 50; ++k) {
      cameras += "1,-,0.1,0,0,0," + std::to_string(kX + k) + "," + Y + ",1100,h" +
                 std::to_string(k) + ",c:\\data\\a.hdr,hit\n";
    }
    folder_.Write("c/data/cam_data_j.csv", cameras);
    folder_.Write("c/data/ImaFiles/old_1.txt", "of the last search\n");
  }

  const TemporaryFolder& folder_;
};

/// The search for tree tops.
inline CancelPlan Matching_Cancel_Plan() {
  CancelPlan plan;
  for (const char* name : {"im0", "im1", "im2"}) {
    plan.prologue.push_back(
        {"menu Add_images_to_set", {std::string("c:\\data\\") + name + ".hdr"}});
  }
  plan.prologue.push_back({"menu Add_height_Model", {"c:\\data\\dem.hdr"}, {"0"}});
  plan.prologue.push_back({"menu Add_Raster_CHM", {"c:\\data\\chm.hdr"}});
  plan.prologue.push_back(Solution_Event(3, 3, 2));
  for (const char* step :
       {"menu Read_plot_center_data", "set Text4 6", "set Text10 0.25", "set Text3 0.4"}) {
    plan.prologue.push_back({step});
  }
  plan.prologue.push_back(Solution_Event(5, 4, 10.9));
  plan.prologue.push_back({"menu Capture_templates"});
  plan.events = {
      {"menu Compute_Correlation_Images", {}, {}, {}, true},
      {"menu Compute_Correlation_Images", {}, {}, {}, true},
      {"menu Create_XYZ_Point_Set"},
      {"menu Create_XYZ_Point_Set"},
      {"menu Compute_Back_Projections", {}, {}, {}, true},
      {"menu Find_clusters", {}, {}, {"MKres.bin"}, true},
      {"menu Resize_templates", {}, {}, {"test_*"}},
      {"menu Center_to_xyz_click"},
      {"undo"},
      {"redo"},
  };
  return plan;
}

/// Surfaces in a polygon.
inline CancelPlan Surface_Cancel_Plan() {
  CancelPlan plan;
  for (const char* name : {"im0", "im1", "im2"}) {
    plan.prologue.push_back(
        {"menu Add_images_to_set", {std::string("c:\\data\\") + name + ".hdr"}});
  }
  plan.prologue.push_back(Solution_Event(0, 0, 445));
  plan.events = {
      {"set Text1(0) -0.002"},
      {"set Text1(1) 0.003"},
      {"set Text1(2) 0"},
      {"set Text1(3) 0"},
      {"menu Get_Surface_Height_InCdll", {}, {}, {}, true},
      {"menu Triplet_Matching", {}, {}, {}, true},
      {"menu Get_Surface_Height", {}, {}, {"testi.txt", "maa.nod", "testi_89_manual2.txt"}},
      {"menu Center_to_xyz_click"},
      {"undo"},
  };
  return plan;
}

}  // namespace sylvomex
