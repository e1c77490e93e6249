// SPDX-License-Identifier: MIT
#include "demo/write/field_files.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

#include "demo/scene/counter_random.h"
#include "demo/write/exact_text.h"
#include "demo/write/truth.h"
#include "platform/files.h"
#include "platform/rounding.h"
#include "solver/ray_angles.h"

namespace sylvomex::demo {
namespace {

constexpr double kDominantHeight = 17, kTallHeight = 13;  // metres
constexpr int kBorderSides = 24, kPolygonSides = 12;
constexpr double kPolygonRadius = 15;  // metres
constexpr std::uint64_t kPointStream = 16;

std::string Line_Of(std::initializer_list<double> values, int decimals) {
  std::string line;
  for (const double value : values) {
    line += (line.empty() ? "" : ",") + Fixed_Decimals(value, decimals);
  }
  return line;
}

std::string Integers(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += "," + std::to_string(value);
  return text;
}

int Species_Code(const Tree& tree) { return static_cast<int>(tree.species) + 1; }

int Layer_Code(const Tree& tree) {
  if (tree.Height() >= kDominantHeight) return 1;
  return tree.Height() >= kTallHeight ? 2 : 3;
}

double Dbh(const Tree& tree) { return 2000 * tree.stem_radius; }

const Tree& Tree_Of(const Scene& scene, std::size_t index) { return scene.trees[index]; }

struct PlanPoint {
  double X = 0, Y = 0;
};

PlanPoint On_Circle(const FieldPlot& plot, double radius, int side, int sides) {
  const double turn = 2 * std::numbers::pi * side / sides;
  return {plot.X + radius * std::cos(turn), plot.Y + radius * std::sin(turn)};
}

std::string Local_Line(const Tree& tree, const FieldPlot& plot) {
  const double a = plot.angle_deg * kRadiansPerDegree;
  const double dx = tree.X - plot.X0 - plot.DX, dy = tree.Y - plot.Y0 - plot.DY;
  const double x = dx * std::cos(a) + dy * std::sin(a);
  const double y = dy * std::cos(a) - dx * std::sin(a);
  return Line_Of({x, y, tree.GroundZ - plot.Z0 - plot.DZ}, 3) + "," +
         Line_Of({Dbh(tree), tree.Height()}, 2) +
         Integers({tree.id, Species_Code(tree), Layer_Code(tree)}) + "\n";
}

double Outline_Exponent(const Tree& tree) { return tree.species == Species::Spruce ? 0.75 : 0.5; }

}  // namespace

FieldPlot Make_Field_Plot(const Scene& scene, std::size_t centre) {
  const Tree& middle = scene.trees[centre];
  FieldPlot plot;
  plot.X = middle.X;
  plot.Y = middle.Y;
  plot.angle_deg = 23.5;
  plot.X0 = Round_Half_Even(middle.X) - 20;
  plot.Y0 = Round_Half_Even(middle.Y) - 15;
  plot.Z0 = Round_Half_Even(Ground_Height(scene, plot.X0, plot.Y0));
  plot.DX = 0.35;
  plot.DY = -0.2;
  plot.DZ = 0.15;
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const Tree& tree = scene.trees[i];
    const bool inside = std::hypot(tree.X - plot.X, tree.Y - plot.Y) <= kFieldPlotRadius;
    if (inside) plot.trees.push_back(i);
  }
  return plot;
}

std::string Field_Plot_Text(const Scene& scene, const FieldPlot& plot) {
  std::string text =
      Line_Of({plot.angle_deg, plot.X0, plot.Y0, plot.Z0, plot.DX, plot.DY, plot.DZ}, 2) + "\n";
  for (const std::size_t i : plot.trees) text += Local_Line(Tree_Of(scene, i), plot);
  return text;
}

std::string Tree_List_Text(const Scene& scene, const FieldPlot& plot) {
  std::string text;
  for (const std::size_t i : plot.trees) {
    const Tree& tree = Tree_Of(scene, i);
    text += Line_Of({tree.X, tree.Y, Dbh(tree)}, 2) + Integers({Species_Code(tree)}) + "," +
            Fixed_Decimals(tree.Height(), 2) +
            Integers({tree.id, tree.Height() >= kTallHeight ? 1 : 0}) + "\n";
  }
  return text;
}

std::string Border_Text(const FieldPlot& plot) {
  std::string text;
  for (int side = 0; side < kBorderSides; ++side) {
    const PlanPoint from = On_Circle(plot, kFieldPlotRadius, side, kBorderSides);
    const PlanPoint to = On_Circle(plot, kFieldPlotRadius, side + 1, kBorderSides);
    text += std::to_string(side + 1) + "," + Line_Of({from.X, from.Y, to.X, to.Y}, 2) + "\n";
  }
  return text;
}

std::string Ground_Polygon_Text(const Scene& scene, const FieldPlot& plot) {
  std::string text;
  for (int side = 0; side <= kPolygonSides; ++side) {
    const PlanPoint at = On_Circle(plot, kPolygonRadius, side % kPolygonSides, kPolygonSides);
    text += Line_Of({at.X, at.Y, Ground_Height(scene, at.X, at.Y)}, 3) + "\n";
  }
  return text;
}

std::string Regression_Text(const Scene& scene, const std::vector<Photograph>& photos,
                            const FieldPlot& plot) {
  std::string text;
  for (const std::size_t i : plot.trees) {
    const Tree& tree = Tree_Of(scene, i);
    int shown = 0;
    for (const TopOnPhoto& top : Tops_On_Photos(scene, photos, i)) shown += top.visible ? 1 : 0;
    text += std::to_string(tree.id) + "," + Line_Of({tree.X, tree.Y, tree.crown_radius}, 2) + "," +
            Line_Of({tree.crown_length / tree.Height(), Outline_Exponent(tree), 0}, 2) +
            Integers({shown}) + "\n";
  }
  return text;
}

std::string Tie_Point_Text(const Scene& scene, const std::vector<Photograph>& photos,
                           const FieldPlot& plot) {
  std::string text;
  for (const std::size_t i : plot.trees) {
    const std::vector<TopOnPhoto> tops = Tops_On_Photos(scene, photos, i);
    for (std::size_t k = 0; k < photos.size(); ++k) {
      if (!tops[k].visible) continue;
      const ImageRecord& image = photos[k].image;
      text += std::to_string(image.ImageId) + " " + std::to_string(scene.trees[i].id) + " " +
              Fixed_Decimals(tops[k].col, 2) + " " +
              Fixed_Decimals(image.FullHeight - 1 - tops[k].row, 2) + "\n";
    }
  }
  return text;
}

std::string Transect_Text() {
  constexpr int points = 131;
  constexpr double border = 20, step = 2;  // metres
  std::string text;
  for (int i = 0; i < points; ++i) {
    const double along = border + i * step;
    text += Line_Of({kForestWest + along, kForestSouth + kForestSide / 2 + 0.1 * along}, 2) + "\n";
  }
  return text;
}

std::string Ground_Points_Text(const Scene& scene) {
  constexpr int points = 400;
  RandomDraws draws{Stream_Key(scene.settings.seed, kPointStream)};
  std::string text;
  for (int i = 0; i < points; ++i) {
    const double X = Round_Half_Even(100 * draws.Uniform(kForestWest, kForestWest + kForestSide));
    const double Y = Round_Half_Even(100 * draws.Uniform(kForestSouth, kForestSouth + kForestSide));
    text += Line_Of({X / 100, Y / 100, Ground_Height(scene, X / 100, Y / 100)}, 2) + "\n";
  }
  return text;
}

std::string Plot_Location_Text(const FieldPlot& plot) {
  return "1," + Line_Of({plot.X, plot.Y}, 2) + ",0,0,0," + Fixed_Decimals(0, 1) + ",0\n";
}

void Write_Field_Files(const Scene& scene, const std::vector<Photograph>& photos,
                       const FieldPlot& plot, const DriveMap& drives) {
  const auto write = [&drives](const char* name, const std::string& text) {
    Write_Whole_File(drives.Locate(name), text);
  };
  write("c:\\data\\demo\\plot.txt", Field_Plot_Text(scene, plot));
  write("c:\\data\\demo\\trees.txt", Tree_List_Text(scene, plot));
  write("c:\\data\\demo\\border.txt", Border_Text(plot));
  write("c:\\data\\demo\\plot_location.txt", Plot_Location_Text(plot));
  write("c:\\data\\demo\\points.txt", Ground_Points_Text(scene));
  write("c:\\data\\XY_polyline.txt", Ground_Polygon_Text(scene, plot));
  write("c:\\data\\imageobs.txt", Tie_Point_Text(scene, photos, plot));
  write("c:\\data\\vektorit\\1926.txt", Transect_Text());
  write("d:\\Regression_results.txt", Regression_Text(scene, photos, plot));
}

}  // namespace sylvomex::demo
