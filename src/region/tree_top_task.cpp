// SPDX-License-Identifier: MIT
#include <list>

#include "matching/tree_top_steps.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "platform/sound_reads.h"
#include "region/task_files.h"
#include "region/task_work.h"

namespace sylvomex {
namespace {

/// The images of a search with their mapped files.
struct OpenImages {
  std::list<MappedRaw> raws;
  std::vector<ChainImage> images;
};

OpenImages Open_Images(const DriveMap& drives, const RegionPlan& plan, const PlotTask& plot) {
  OpenImages open;
  for (const int k : plot.images) {
    const RegionImage image = Read_Region_Image(drives, plan.headers[static_cast<std::size_t>(k)]);
    const MappedRaw& raw = open.raws.emplace_back(drives, image.record);
    open.images.push_back(
        {image.record,
         image.camera,
         {raw.file.Bytes(), image.record.SubWidth, image.record.SubHeight, &raw.name}});
  }
  return open;
}

MapExtent Mesh_Of(const PlotTask& plot) {
  constexpr double kRoom = 0.01;  // metres, beyond the mesh's last column
  const double half = Mesh_Side_Of(Patch_Size_Of(plot.radius)) / 2.0 + kRoom;
  return {plot.centre.X - half, plot.centre.Y - half, plot.centre.X + half, plot.centre.Y + half};
}

MapExtent Place_Of(const Point3D& point) { return {point.X, point.Y, point.X, point.Y}; }

double Ground_At(const PartialModel& dem, double X, double Y) {
  if (!dem.Holds(X, Y)) {
    throw RunTimeError(Failure::BadContent, "the ground model does not reach X " +
                                                Format(X, "0.00") + ", Y " + Format(Y, "0.00"));
  }
  const double height = Raster_Height(dem.Model(), X, Y);
  if (!Is_No_Data(height)) return height;
  throw RunTimeError(Failure::BadContent, No_Data_Text("the ground model", X, Y, height));
}

double Canopy_At(const PartialModel& chm, double X, double Y, std::string& told) {
  const double height = Raster_Height(chm.Model(), X, Y);
  if (!Is_No_Data(height)) return height;
  if (told.empty()) told = No_Data_Text("the canopy model", X, Y, height);
  return std::numeric_limits<double>::quiet_NaN();
}

std::string Table_Of(const std::vector<TreeTop>& tops, const WorldShift& shift) {
  std::string table = "number,X,Y,Z,score,members\n";
  for (std::size_t i = 0; i < tops.size(); ++i) {
    const TreeTop& top = tops[i];
    table += std::to_string(i + 1) + "," + Full_Text(top.at.X + shift.X) + "," +
             Full_Text(top.at.Y + shift.Y) + "," + Full_Text(top.at.Z) + "," +
             Full_Text(1 + top.weight / top.members) + "," + std::to_string(top.members) + "\n";
  }
  return table;
}

std::string Log_Of(const PlotTask& plot, const TreeTopSearch& found, const std::string& told) {
  std::string log = "plot " + plot.plot + "\nmodel tree " + plot.model_tree + ", " +
                    Format(found.model_tree_height, "0.00") + " m high\n" +
                    std::to_string(found.images) + " of " + std::to_string(plot.images.size()) +
                    " images took part\n";
  for (const std::string& note : found.notes) log += note + "\n";
  if (!told.empty()) log += "the mesh stays empty where " + told + "\n";
  return log + std::to_string(found.mesh_points) + " mesh points, " +
         std::to_string(found.tops.size()) + " tree tops\n";
}

}  // namespace

TaskYield Run_Tree_Tops(const RegionPlan& plan, const RegionTask& task,
                        const std::filesystem::path& folder, int threads) {
  const ReadScope scope;
  const PlotTask& plot = task.plot;
  const DriveMap drives(plan.site);
  LapClock clock;
  const OpenImages open = Open_Images(drives, plan, plot);
  PartialModel dem(drives, plan.dem), chm(drives, plan.chm);
  dem.Read(Mesh_Of(plot));
  dem.Read(Place_Of(plot.model_top));
  chm.Read(Mesh_Of(plot));
  TaskYield yield;
  yield.seconds.read = clock.Lap();
  TreeTopOrder order{plot.centre, plot.model_top, plan.numbers};
  order.numbers.r = plot.radius;
  std::string told;
  const TreeTopSearch found = Find_Tree_Tops(
      order, open.images, [&](double X, double Y) { return Ground_At(dem, X, Y); },
      [&](double X, double Y) { return Canopy_At(chm, X, Y, told); }, threads);
  Require_Sound_Reads();
  yield.seconds.read += found.seconds.read;
  yield.seconds.compute = clock.Lap() - found.seconds.read;
  Write_Task_File(folder / "tops.csv", Table_Of(found.tops, plan.shift));
  Write_Task_File(folder / "log.txt", Log_Of(plot, found, told));
  yield.figures = {{"tops", static_cast<double>(found.tops.size())},
                   {"images", static_cast<double>(found.images)},
                   {"mesh_points", static_cast<double>(found.mesh_points)}};
  return yield;
}

}  // namespace sylvomex
