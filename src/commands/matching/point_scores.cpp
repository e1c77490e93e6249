// SPDX-License-Identifier: MIT
#include "commands/matching/point_scores.h"

#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "commands/matching/matching_inputs.h"
#include "heightmodels/raster_model.h"
#include "matching/tree_top_steps.h"
#include "overlays/colour_map.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "services/hourglass.h"
#include "services/progress.h"
#include "services/status_line.h"
#include "services/ticked_images.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr float kHotScore = 1.2F;
constexpr double kNoCanopy = std::numeric_limits<double>::quiet_NaN();

void Take_Mesh_Options(Workspace& w) {
  CaptureSnapshotRecord& snapshot = w.Matching.CaptureSnapshot;
  const double top_factor = Number_In(w.Form1.Text8, "Text8");
  const double low_factor = Number_In(w.Form1.Text9, "Text9");
  const double spacing = Number_In(w.Form1.Text10, "Text10");
  snapshot.fHDOM = top_factor;
  snapshot.Hlow = low_factor;
  snapshot.Mesh = spacing;
}

MeshSettings Mesh_Settings(const MatchingState& m) {
  const CaptureSnapshotRecord& options = m.CaptureSnapshot;
  MeshSettings settings;
  settings.plot_X = m.PlotCenter.PlotX;
  settings.plot_Y = m.PlotCenter.PlotY;
  settings.side_X = settings.side_Y = m.MeshSide;
  settings.dx = settings.dy = settings.dz = options.Mesh;
  settings.rotation = m.PlotCenter.MeshRotation;
  settings.top_factor = options.fHDOM;
  settings.low_factor = options.Hlow;
  return settings;
}

// Ground height below a mesh column or a tree; without ground there is no layer to search.
double Ground_At(const Workspace& w, double X, double Y) {
  const double ground = Get_Raster_Elevation(w, X, Y);
  if (!Is_No_Data(ground)) return ground;
  throw RunTimeError(Failure::BadContent, No_Data_Text("the ground model", X, Y, ground));
}

// A column without canopy data stays empty; the first such column is reported.
MeshTable Build_Mesh_And_Tell(Workspace& w) {
  std::string told;
  const auto ground = [&w](double X, double Y) { return Ground_At(w, X, Y); };
  const auto canopy = [&w, &told](double X, double Y) {
    const double height = Get_Raster_Chm_Elevation(w, X, Y);
    if (!Is_No_Data(height)) return height;
    if (told.empty()) told = No_Data_Text("the canopy model", X, Y, height);
    return kNoCanopy;
  };
  MeshTable mesh = Build_Mesh(Mesh_Settings(w.Matching), ground, canopy);
  if (!told.empty()) w.screen->Message_Box("The mesh stays empty where " + told);
  return mesh;
}

void Measure_Model_Tree(Workspace& w) {
  const Point3D& top = w.Solution3D;
  w.Matching.ModelTreeHeight = top.Z - Ground_At(w, top.X, top.Y);
  w.Matching.CaptureSnapshot.ModelTreeHeight = w.Matching.ModelTreeHeight;
}

ImageSummaryRecord Summary_Of(const ImageRecord& image) {
  return {image.ImageId, image.SunAzimuth, image.SunElevation, image.X0, image.Y0, image.Z0};
}

void Summarize_Images(Workspace& w, const std::vector<int>& images) {
  w.Matching.MatchImageCount = static_cast<std::int32_t>(images.size());
  w.Matching.ImageSummary.clear();
  for (const int k : images) w.Matching.ImageSummary.push_back(Summary_Of(w.ImageBlock(k)));
}

// The correlation of every mesh point in one image.
std::vector<float> Back_Project(Workspace& w, int image) {
  return Back_Project(image, w.ImageBlock(image), w.CorrelationRecords(image),
                      w.Matching.MeshPoints, w.Matching.CorrelationVolume.All());
}

using ImageCorrelation = std::vector<std::vector<float>>;  // indexed by ticked image, then by point

std::size_t Count_Hot_Points(const std::vector<float>& scores) {
  std::size_t count = 0;
  for (const float score : scores) count += score > kHotScore ? 1 : 0;
  return count;
}

void Sort_Points(MatchingState& m) {
  m.SortCount = static_cast<std::int32_t>(m.PointScore.size() - 1);
  m.SortIndex = Sort_Scores(m.PointScore);
}

void Lay_Mesh(Workspace& w, Progress& progress) {
  const HourglassGuard hourglass(w);
  progress.Report("Computing 3D-pointmesh...");
  w.Matching.MeshPoints = Build_Mesh_And_Tell(w);
}

}  // namespace

void Create_XYZ_Point_Set(Workspace& w) {
  MatchingState& m = w.Matching;
  if (std::abs(m.PlotCenter.PlotX) < 1 || std::abs(m.PlotCenter.PlotY) < 1) {
    Show_With_Cause(w, "Are the plotcenter values ok?",
                    "PlotX is " + Plain_Text(m.PlotCenter.PlotX) + ", PlotY is " +
                        Plain_Text(m.PlotCenter.PlotY));
    return;
  }
  Measure_Model_Tree(w);
  About(w, "the mesh's side, 0.65 of PatchSize", [&] { m.MeshSide = Mesh_Side_Of(m.PatchSize); });
  Take_Mesh_Options(w);
  Progress progress(w);
  Lay_Mesh(w, progress);
  progress.Report("3D-Point mesh creation succesfully done");
  Show_Status(w, "3D-pointmesh computed, meanheight: " + Format(m.ModelTreeHeight, "#.# m"));
}

void Compute_Back_Projections(Workspace& w) {
  MatchingState& m = w.Matching;
  const std::vector<int> images = Ticked_Images(w);
  m.PointScore.assign(m.MeshPoints.size() + 1, 0);  // a failure leaves no earlier scores
  Summarize_Images(w, images);
  const HourglassGuard hourglass(w);
  Progress progress(w);
  progress.Service();
  ImageCorrelation correlations;
  WorkMeter meter(static_cast<double>(images.size()));
  for (const int image : images) {
    correlations.push_back(Back_Project(w, image));
    meter.Step();
  }
  Read_Colour_Map(w.Drives.Locate(kColourMapFile));
  m.PointScore = Score_Points(m.MeshPoints.size(), correlations);
  // The hot points are not drawn; events are serviced once for each of them.
  for (std::size_t hot = Count_Hot_Points(m.PointScore); hot > 0; --hot) {
    progress.Service();
  }
  Sort_Points(m);
  Show_Status(w, "3D-correlation computed and sorted, ready for tree top extraction");
}

}  // namespace sylvomex
