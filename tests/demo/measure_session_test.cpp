// SPDX-License-Identifier: MIT
#include "demo/write/measure_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include "commands/solver/point_intersection.h"
#include "commands/solver/solution_control.h"
#include "demo/write/session_steps.h"
#include "demo/write/truth.h"
#include "platform/number_text.h"
#include "state/camera_access.h"
#include "support/recording_screen.h"
#include "support/temporary_folder.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

const std::vector<Photograph>& Photos() {
  static const std::vector<Photograph> photos = Fly_Over(Site());
  return photos;
}

struct ScriptedTree {
  std::vector<double> inputs;
  std::map<std::size_t, PanePosition> clicks;  // by pane
};

/// The clicks of the session's text by tree id.
std::map<int, ScriptedTree> Parse_Session(const std::string& session) {
  std::map<int, ScriptedTree> trees;
  int id = 0;
  std::istringstream lines(session);
  for (std::string line; std::getline(lines, line);) {
    double number = 0, px = 0, py = 0;
    std::size_t pane = 0;
    if (std::sscanf(line.c_str(), "say \"tree %d\"", &id) == 1) continue;
    if (id == 0) continue;
    if (std::sscanf(line.c_str(), "input %lf", &number) == 1) trees[id].inputs.push_back(number);
    if (std::sscanf(line.c_str(), "click Picture1(%zu) %lf %lf", &pane, &px, &py) == 3) {
      trees[id].clicks[pane] = {px, py};
    }
  }
  return trees;
}

TEST(MeasureSession, MeasuresAtLeastThirtyTreesSpreadOverTheSite) {
  const std::vector<std::size_t> chosen = Trees_To_Measure(Site(), Photos());
  EXPECT_GE(chosen.size(), 30U);
  std::set<int> quarters;
  for (const std::size_t i : chosen) {
    const Tree& tree = Site().trees[i];
    const double x = tree.X - kForestWest, y = tree.Y - kForestSouth;
    EXPECT_GE(std::min({x, y, kForestSide - x, kForestSide - y}), 25);
    EXPECT_GE(tree.Height(), 17);
    quarters.insert((x > 150 ? 1 : 0) + (y > 150 ? 2 : 0));
  }
  EXPECT_EQ(quarters.size(), 4U);
}

TEST(MeasureSession, RoughPointsAreWithinThreeMetresInPlan) {
  const Tree& tree = Site().trees[0];
  const Point3D rough = Rough_Point(tree);
  EXPECT_EQ(std::fmod(rough.X, 3), 0);
  EXPECT_LE(std::abs(rough.X - tree.X), 1.5);
  EXPECT_LE(std::abs(rough.Y - tree.Y), 1.5);
  EXPECT_LE(std::abs(rough.Z - tree.GroundZ - 15), 0.5);
}

TEST(MeasureSession, ClicksIntersectAtTheTopsToTheirRounding) {
  const auto trees = Parse_Session(Measure_Session(Site(), Photos()));
  EXPECT_GE(trees.size(), 30U);
  for (const auto& [id, scripted] : trees) {
    const Tree& tree = Site().trees.at(static_cast<std::size_t>(id - 1));
    ASSERT_EQ(scripted.inputs.size(), 3U);
    ASSERT_GE(scripted.clicks.size(), 4U) << "tree " << id;
    std::vector<FilmObservation> observations;
    for (const auto& [pane, at] : scripted.clicks) {
      EXPECT_EQ(std::fmod(at.px, 0.5), 0);
      const Photograph& photo = Photos().at(pane);
      // The window of 380 pixels, an even number, starts 189 pixels before its centre.
      const auto [col, row] = Object_To_Pixel(
          photo.camera, {scripted.inputs[0], scripted.inputs[1], scripted.inputs[2]});
      const double top = photo.image.FullHeight - 1 - row;
      const double view_col = std::nearbyint(col - photo.image.SubColOrigin) - 189;
      const double view_row = std::nearbyint(top - photo.image.SubRowOrigin) - 189;
      const PixelPosition clicked{
          view_col + photo.image.SubColOrigin + at.px,
          photo.image.FullHeight - 1 - (view_row + photo.image.SubRowOrigin + at.py)};
      observations.push_back({photo.camera, Pixel_To_Image(photo.camera, clicked)});
    }
    const IntersectionResult result = Intersect_Rays(
        observations, {scripted.inputs[0], scripted.inputs[1], scripted.inputs[2]}, {});
    // Half-pixel clicks err by at most 0.25 pixels of 0.1 m in each axis.
    EXPECT_NEAR(result.point.X, tree.X, 0.05) << "tree " << id;
    EXPECT_NEAR(result.point.Y, tree.Y, 0.05) << "tree " << id;
    EXPECT_NEAR(result.point.Z, tree.TopZ, 0.1) << "tree " << id;
  }
}

// The demo's photographs in a block without a solution, on a flat ground model of 150 m.
struct DemoBlock {
  DemoBlock() {
    for (std::size_t k = 0; k < Photos().size(); ++k) {
      const int image = static_cast<int>(k);
      w.ImageBlock(image) = Photos()[k].image;
      Build_Rotation_Matrix(w, image);
      ++w.ImageCount;
    }
    w.RasterDem.NCols = w.RasterDem.NRows = 1;
    w.RasterDem.OriginX = kForestWest;
    w.RasterDem.OriginY = kForestSouth + 50000;
    w.RasterDem.CellSize = 100000;
    Dimension_Cells(w.RasterDem);
    w.RasterDem.Cells[0] = 150;
    w.RasterDemLoaded = true;
  }

  // The film position of the point in every photograph, rounded as by a click.
  void Observe(const Point3D& point) {
    for (int k = 0; k < w.ImageCount; ++k) {
      const FilmPosition film = Object_To_Image(Camera_Of(w, k), point).value();
      w.Form1.Text1(2 * k).Text = Format(film.x, "0.#######");
      w.Form1.Text1(2 * k + 1).Text = Format(film.y, "0.#######");
      w.Form1.Check1(k).Value = 1;
    }
  }

  TemporaryFolder folder;
  RecordingScreen screen;
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  Workspace& w = *block;
};

TEST(MeasureSession, FromTheStartTheFirstIntersectionFailsAndAResetSolutionConverges) {
  DemoBlock b;
  const Tree& tree = Site().trees[Trees_To_Measure(Site(), Photos()).front()];
  b.Observe({tree.X, tree.Y, tree.TopZ});
  Point_Intersection(b.w);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Could not compute ray intersection");
  EXPECT_NE(b.w.Form1.Label3.Caption.find("Reset (X,Y,Z) - solution"), std::string::npos);
  Reset_Point_Solution(b.w);
  EXPECT_EQ(b.w.Solution3D.Z, 150);
  Point_Intersection(b.w);
  EXPECT_TRUE(b.w.SolutionValid);
  // 0.05 um of rounding at a scale of about 1:8000 are less than a millimetre, and a few in height.
  EXPECT_NEAR(b.w.Solution3D.X, tree.X, 0.005);
  EXPECT_NEAR(b.w.Solution3D.Y, tree.Y, 0.005);
  EXPECT_NEAR(b.w.Solution3D.Z, tree.TopZ, 0.02);
}

TEST(FirstSession, ClicksTheTreeOfTheStartingPanesBeforeThereIsASolution) {
  const std::string session = First_Session(Site(), Photos());
  const Tree& tree = Site().trees[Start_Tree(Site())];
  const auto trees = Parse_Session(session);
  ASSERT_EQ(trees.size(), 1U);
  ASSERT_EQ(trees.begin()->first, tree.id);
  EXPECT_GE(trees.begin()->second.clicks.size(), 3U);
  // The panes are centred on the start position, the top to whole pixels.
  for (const auto& [pane, at] : trees.begin()->second.clicks) {
    EXPECT_NEAR(at.px, kSessionPaneSide / 2.0, 1.5) << pane;
    EXPECT_NEAR(at.py, kSessionPaneSide / 2.0, 1.5) << pane;
  }
  EXPECT_LT(session.find("menu Center_To_Sub_c_click"), session.find("click Picture1"));
  EXPECT_EQ(session.find("Set_3D_solution"), std::string::npos);
  EXPECT_LT(session.find("menu Point_Intersection"), session.find("menu Reset_Point_Solution"));
  EXPECT_LT(session.find("menu Reset_Point_Solution"), session.rfind("menu Point_Intersection"));
}

TEST(OpenSession, CentresOnTheTopOfATree) {
  const std::string session = Open_Session(Site(), Photos());
  double X = 0, Y = 0, Z = 0;
  const std::size_t at = session.rfind("Add_height_Model\n");
  ASSERT_NE(at, std::string::npos);
  ASSERT_EQ(std::sscanf(session.c_str() + at, "Add_height_Model\ninput %lf\ninput %lf\ninput %lf",
                        &X, &Y, &Z),
            3);
  EXPECT_TRUE(std::ranges::any_of(
      Site().trees,
      [&](const Tree& tree) { return std::hypot(tree.X - X, tree.Y - Y, tree.TopZ - Z) < 0.02; }))
      << X << " " << Y << " " << Z;
}

TEST(MeasureSession, LoadsEverythingBeforeTheFirstTreeAndSavesEachTree) {
  const std::string session = Measure_Session(Site(), Photos());
  const auto count = [&session](const std::string& step) {
    std::size_t n = 0;
    for (auto at = session.find(step); at != std::string::npos; at = session.find(step, at + 1)) {
      ++n;
    }
    return n;
  };
  EXPECT_EQ(count("menu Add_images_to_set\n"), 6U);
  EXPECT_EQ(count("menu Add_height_Model\n"), 1U);
  const std::size_t trees = count("say \"tree ");
  EXPECT_EQ(count("menu Set_3D_solution\n"), trees);
  EXPECT_EQ(count("menu Center_to_xyz_click\n"), trees);
  EXPECT_EQ(count("menu Point_Intersection\nprint Solution3D\nprint Label10\n"), trees);
  EXPECT_EQ(count("menu Save_measured_point\n"), trees);
  EXPECT_EQ(count("press Form3.Accept_And_Save_Button\n"), trees);
  EXPECT_LT(session.find("Add_height_Model"), session.find("say "));
}

TEST(ViewCentredOn, IsShiftedInsideTheRawFileAtItsEdge) {
  const Photograph& photo = Photos()[0];
  const PaneView view = View_Centred_On(photo, {kForestWest - 15, kForestSouth - 15, 200}, 380);
  EXPECT_GE(view.ViewCol, 0);
  EXPECT_GE(view.ViewRow, 0);
  EXPECT_LE(view.ViewCol + 380, photo.image.SubWidth);
  EXPECT_LE(view.ViewRow + 380, photo.image.SubHeight);
}

}  // namespace
}  // namespace sylvomex::demo
