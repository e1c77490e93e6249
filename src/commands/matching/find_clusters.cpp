// SPDX-License-Identifier: MIT
#include "commands/matching/find_clusters.h"

#include <cmath>
#include <ctime>
#include <string>
#include <vector>

#include "closedlib/counted_loop.h"
#include "commands/matching/matching_inputs.h"
#include "matching/cluster_position.h"
#include "matching/tree_top_steps.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/wall_clock.h"
#include "services/kept_file.h"
#include "services/progress.h"
#include "services/status_line.h"
#include "solver/random_id.h"
#include "state/box_numbers.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kNodeFile = "c:\\data\\testi_89_manual2.nod";
constexpr Colour kCircleColour{0, 255, 255};

void Clear_Clusters(MatchingState& m) {
  m.ClusterSum = {};
  m.ClusterWeight = {};
  m.ClusterInfo = {};
}

void Take_Limits(Workspace& w) {
  const double distance = Number_In(w.Form1.Text2, "Text2");
  const double score_limit = Number_In(w.Form1.Text3, "Text3");
  w.Matching.CaptureSnapshot.XYt = distance;
  w.Matching.CaptureSnapshot.Rl = score_limit;
}

// Local time in a strftime pattern.
std::string Time_Text(const char* pattern) {
  const std::time_t now = Wall_Clock();
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, pattern, &local)};
}

void Draw_Plot_Circle(Workspace& w, int image) {
  constexpr double kFirst = -3.14159265358979, kLast = 3.14159265358979, kStep = 0.1;
  const PlotCenterRecord& plot = w.Matching.PlotCenter;
  const double radius = w.Matching.PlotRadius;
  Picture& pane = w.Form1.Picture1(image);
  Erase_Marks(pane);
  w.screen->Service_Events();
  pane.DrawWidth = 1;
  const int passes = Loop_Passes(kFirst, kLast, kStep);
  PanePosition from;
  for (int pass = 0; pass < passes; ++pass) {
    const double t = kFirst + pass * kStep;
    const PanePosition to = Pane_Of_Point(
        w, image,
        {plot.PlotX + radius * std::cos(t), plot.PlotY + radius * std::sin(t), plot.PlotZ});
    if (pass > 0) Draw_Line(pane, from.px, from.py, to.px, to.py, kCircleColour);
    from = to;
  }
}

void Fill_Parameters(MatchingState& m) {
  // Fixed arguments of the cluster routine; their meaning is internal to it.
  constexpr double kFirstConstant = 1.3, kSecondConstant = 3.0;
  const CaptureSnapshotRecord& s = m.CaptureSnapshot;
  const double values[] = {m.PlotCenter.PlotX,
                           m.PlotCenter.PlotY,
                           m.PlotCenter.PlotZ,
                           m.PlotRadius,
                           kFirstConstant,
                           kSecondConstant,
                           static_cast<double>(m.MatchImageCount),
                           0,
                           s.Solution.X,
                           s.Solution.Y,
                           s.Solution.Z,
                           s.Template.Tw,
                           s.Template.EZA,
                           s.Template.Zd,
                           s.fHDOM,
                           s.Hlow,
                           s.Mesh,
                           s.ModelTreeHeight};
  std::copy(std::begin(values), std::end(values), m.ClusterParameters.begin());
}

void Create_Result_File(const Workspace& w) {
  const FilePath file = w.Drives.Locate(w.DataFolder + "\\MKres.bin");
  if (!File_Exists(file)) Write_Whole_File(file, "");
}

void Search_Clusters(MatchingState& m) {
  std::vector<std::int32_t> members(kMostClusters + 2);
  const ClusterTables tables{{m.ClusterWeight.begin(), m.ClusterWeight.end()},
                             {m.ClusterSum.begin(), m.ClusterSum.end()},
                             members};
  m.ClusterCount = Group_Points({m.SortCount, m.SortIndex, m.PointScore, m.MeshPoints},
                                m.CaptureSnapshot.XYt, m.CaptureSnapshot.Rl, tables);
  for (int i = 0; i <= m.ClusterCount; ++i) {
    m.ClusterInfo(i).Members = members[static_cast<std::size_t>(i)];
  }
}

std::string Node_Line(int number, const Point3D& at) {
  return Plain_Text(std::int32_t{number}) + "," + Plain_Text(at.X) + "," + Plain_Text(at.Y) + "," +
         Plain_Text(at.Z) + "\n";
}

void Mark_Cluster(Workspace& w, const Point3D& top) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Pane_Of_Point(w, k, top);
    Picture& pane = w.Form1.Picture1(k);
    pane.DrawWidth = 2;
    Plot_Block(pane, at.px, at.py, 1, kWhite);
    pane.DrawWidth = 1;
  }
}

void List_Clusters(Workspace& w, std::string& nodes) {
  for (int i = 1; i <= w.Matching.ClusterCount; ++i) {
    const Point3D top = Cluster_Position(w.Matching, i);
    nodes += Node_Line(i, top);
    Mark_Cluster(w, top);
  }
}

void Show_Counts(Workspace& w) {
  const std::string count = Plain_Text(w.Matching.ClusterCount);
  w.Form1.Label10.FontSize = 8;
  Show_Status(
      w, "Fd " + count + " cs, " + count + " in plot r=" + Format(w.Matching.PlotRadius, "#.0"));
}

void Draw_Run_Name(Workspace& w) {
  std::string name;
  do {
    name = Random_Id8(w.screen->Random());
  } while (File_Exists(w.Drives.Locate("c:\\data\\" + name + ".tr")));
  w.Matching.ClusterRunName = name;
}

void Run_Search(Workspace& w, std::string& nodes) {
  MatchingState& m = w.Matching;
  Clear_Clusters(m);
  Take_Limits(w);
  m.ClusterRunDate = Time_Text("%d.%m.%Y");
  m.ClusterRunTime = Time_Text("%H:%M:%S");
  for (int k = 0; k < w.ImageCount; ++k) Draw_Plot_Circle(w, k);
  Fill_Parameters(m);
  Create_Result_File(w);
  Search_Clusters(m);
  Progress(w).Report("Found " + Plain_Text(m.ClusterCount) + " clusters");
  List_Clusters(w, nodes);
  Show_Counts(w);
  Draw_Run_Name(w);
}

// A search that is cancelled leaves no cluster.
void Search_Or_Clear(Workspace& w, std::string& nodes) {
  try {
    Run_Search(w, nodes);
  } catch (const Cancelled&) {
    Clear_Clusters(w.Matching);
    w.Matching.ClusterCount = 0;
    throw;
  }
}

}  // namespace

void Find_clusters(Workspace& w) {
  With_Text_File(w.Drives.Locate(kNodeFile),
                 [&w](std::string& nodes) { Search_Or_Clear(w, nodes); });
}

}  // namespace sylvomex
