// SPDX-License-Identifier: MIT
#include "commands/imageblock/image_search.h"

#include <optional>
#include <vector>

#include "commands/heightmodels/raster_commands.h"
#include "commands/imageblock/block_maintenance.h"
#include "commands/imageblock/image_addition.h"
#include "commands/imageblock/image_set.h"
#include "commands/panes/centring.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/chosen_file.h"
#include "services/kept_file.h"
#include "services/line_count.h"
#include "services/solution.h"
#include "solver/point_in_image.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

struct Archive {
  const char* table;
  const char* folder;  // for the point-in-image files
};

constexpr Archive kAerial{"c:\\data\\cam_data_j.csv", "c:\\data\\ImaFiles\\"};
constexpr Archive kTerrestrial{"c:\\data\\cam_data_G6_j.csv", "c:\\data\\G6\\ImaFiles\\"};

void Delete_Last_Hits(const Workspace& w, const Archive& archive) {
  Delete_Matching(w.Drives, std::string(archive.folder) + "*.txt");
}

void Write_Hit(const Workspace& w, const Archive& archive, const TableCamera& camera,
               const Point3D& point) {
  Write_Whole_File(w.Drives.Locate(archive.folder + Point_In_Image_Name(camera)),
                   Point_In_Image_Line(camera, point));
}

std::string Line_Of(const Archive& archive, const TableCamera& camera) {
  return std::string(archive.table) + ", line " + Plain_Text(std::int32_t{camera.line});
}

struct ChosenHit {
  std::string file;
  PointInImage hit;
};

std::optional<ChosenHit> Ask_Hit(Workspace& w) {
  const auto chosen = Ask_File(w, {"Header file for a Point in an Image",
                                   "Text files (*.txt)|*.txt", 1, "c:\\data\\Imafiles"});
  if (!chosen) return std::nullopt;
  ListReader file(*chosen);
  return ChosenHit{chosen->name, Read_Point_In_Image(file)};
}

void Take_Over_Point(Workspace& w, const PointInImage& hit) {
  w.Solution3D = hit.point;
  w.Observation.X = hit.point.X;
  w.Observation.Y = hit.point.Y;
  w.Observation.Z = hit.point.Z;
  w.Observation.FreeInteger = hit.identity;
  Show_Solution(w, kThousandths);
}

void Load_Images_That_Show(Workspace& w, const Point3D& point) {
  const FilePath file = w.Drives.Locate(kTerrestrial.table);
  CameraTableReader table(file);
  Delete_Last_Hits(w, kTerrestrial);
  WorkMeter meter(Lines_To_Come(file));
  while (const auto camera = table.Next()) {
    meter.Step();
    if (!Sees_Ring(*camera, point)) continue;
    Write_Hit(w, kTerrestrial, *camera, point);
    w.SolutionValid = true;
    Named_In(w, Line_Of(kTerrestrial, *camera),
             [&] { Add_Image_By_Name(w, w.Drives.Locate(camera->header)); });
  }
}

// The closed ring at the point's height and a vertical line from the point to the ground.
void Draw_Stem(Workspace& w, int image, const Point3D& point, double ground) {
  Picture& pane = w.Form1.Picture1(image);
  const std::vector<Point3D> ring = Ring_Around(point);
  pane.DrawWidth = 2;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point3D& next = ring[(i + 1) % ring.size()];
    const PanePosition from = Pane_Of_Point(w, image, ring[i]);
    const PanePosition to = Pane_Of_Point(w, image, next);
    Draw_Line(pane, from.px, from.py, to.px, to.py, kYellow);
  }
  pane.DrawWidth = 1;
  const PanePosition top = Pane_Of_Point(w, image, point);
  const PanePosition foot = Pane_Of_Point(w, image, {point.X, point.Y, ground});
  Draw_Line(pane, top.px, top.py, foot.px, foot.py, kRed);
}

}  // namespace

void Find_Images_With_XYZ_Sol(Workspace& w) {
  const FilePath file = w.Drives.Locate(kAerial.table);
  CameraTableReader table(file);
  std::vector<TableCamera> hits;
  Write_However_It_Ends(
      [&] {
        WorkMeter meter(Lines_To_Come(file));
        while (const auto camera = table.Next()) {
          meter.Step();
          if (Sees_Point(*camera, w.Solution3D)) hits.push_back(*camera);
        }
      },
      [&] {
        Delete_Last_Hits(w, kAerial);
        for (const TableCamera& camera : hits) Write_Hit(w, kAerial, camera, w.Solution3D);
      });
  w.screen->Message_Box("Written " + Plain_Text(static_cast<std::int32_t>(hits.size())) +
                        " files in c:\\Data\\Imafiles");
}

void Add_Image_Center_to_XYZ(Workspace& w) {
  const std::optional<ChosenHit> chosen = Ask_Hit(w);
  if (!chosen) return;
  Take_Over_Point(w, chosen->hit);
  const FollowedImage image(w, w.ImageCount);
  ImageAddition addition(w, image);
  const bool is_taken = Named_In(w, chosen->file, [&] {
    return Take_In_Image(w, w.Drives.Locate(chosen->hit.header), image);
  });
  if (!is_taken) return;
  w.SolutionValid = true;
  addition.Undo_When_Cancelled([&w] { Center_to_xyz_click(w); });
  w.screen->Clear_Clipboard();
  // Nothing more to report: the centring has reported a missing picture, and a removal of the image
  // was the operator's own.
  if (!image.Is_There()) return;
  const auto& bitmap = w.Form1.Picture1(image.Index()).bitmap;
  if (bitmap != nullptr) w.screen->Copy_To_Clipboard(*bitmap);
}

void Find_And_Read_Terr_Images_in_Which(Workspace& w) {
  Remove_All_Images(w);
  const Point3D point = w.Solution3D;
  Load_Images_That_Show(w, point);
  const double ground = Get_Raster_Elevation(w, point.X, point.Y);
  for (int k = 0; k < w.ImageCount; ++k) Draw_Stem(w, k, point, ground);
  Show_Solution(w, kThousandths);
  Get_elevation(w);
}

void Find_Trees_Based_On_Lidar(Workspace& w) { w.screen->Message_Box("This routine is disabled"); }

}  // namespace sylvomex
