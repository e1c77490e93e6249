// SPDX-License-Identifier: MIT
#include "demo/write/measure_session.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "demo/write/session_steps.h"
#include "demo/write/truth.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr int kFields = 6;              // per side of the site
constexpr double kBorder = 25;          // metres
constexpr double kDominantHeight = 17;  // metres
constexpr int kLeastPhotos = 4;
constexpr std::size_t kPictureAfter = 3;  // trees measured before the panes are saved as pictures

int Count_Visible(const std::vector<TopOnPhoto>& tops) {
  int count = 0;
  for (const TopOnPhoto& top : tops) count += top.visible ? 1 : 0;
  return count;
}

/// The grid field in which a tree stands; std::nullopt near the border.
std::optional<std::size_t> Field_Of(const Tree& tree) {
  const double inside = kForestSide - 2 * kBorder;
  const double x = (tree.X - kForestWest - kBorder) / inside * kFields;
  const double y = (tree.Y - kForestSouth - kBorder) / inside * kFields;
  if (x < 0 || y < 0 || x >= kFields || y >= kFields) return std::nullopt;
  return static_cast<std::size_t>(y) * kFields + static_cast<std::size_t>(x);
}

std::string Pane_Pictures(const std::vector<Photograph>& photos) {
  std::string text;
  for (std::size_t k = 0; k < photos.size(); ++k) {
    text += "save Picture1(" + std::to_string(k) + ") c:\\data\\demo\\measured_pane" +
            std::to_string(k + 1) + ".png\n";
  }
  return text;
}

/// The steps from a rough point to a saved observation, with pictures after each stage for one of
/// the trees.
std::string Measure_Steps(const Scene& scene, const std::vector<Photograph>& photos,
                          std::size_t index, bool with_pictures) {
  const Tree& tree = scene.trees[index];
  const Point3D centre = Rough_Point(tree);
  const auto picture = [with_pictures](const char* window, const char* stage) {
    return with_pictures ? Window_Picture(window, stage) : std::string();
  };
  return "\nsay \"tree " + std::to_string(tree.id) + "\"\n" + Centre_Steps(centre) +
         picture("Form1", "window_2_centred") + Click_Steps(scene, photos, index, centre) +
         picture("Form1", "window_3_clicked") +
         "menu Point_Intersection\nprint Solution3D\nprint Label10\n" +
         (with_pictures ? Pane_Pictures(photos) : std::string()) +
         picture("Form1", "window_4_solved") + "menu Save_measured_point\n" +
         picture("Form3", "window_5_observation") + "press Form3.Accept_And_Save_Button\n";
}

}  // namespace

Point3D Rough_Point(const Tree& tree) {
  return {3 * Round_Half_Even(tree.X / 3), 3 * Round_Half_Even(tree.Y / 3),
          Round_Half_Even(tree.GroundZ + 15)};
}

std::vector<std::size_t> Trees_To_Measure(const Scene& scene,
                                          const std::vector<Photograph>& photos) {
  struct Best {
    std::size_t tree = 0;
    int visible = 0;
  };
  std::vector<Best> best(kFields * kFields);
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const Tree& tree = scene.trees[i];
    const auto field = Field_Of(tree);
    if (!field || tree.Height() < kDominantHeight) continue;
    const int visible = Count_Visible(Tops_On_Photos(scene, photos, i));
    if (visible >= kLeastPhotos && visible > best[*field].visible) best[*field] = {i, visible};
  }
  std::vector<std::size_t> chosen;
  for (const Best& field : best) {
    if (field.visible > 0) chosen.push_back(field.tree);
  }
  return chosen;
}

std::string Measure_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  std::string text = "# Tree tops of the demo site, measured in all photographs that show them.\n" +
                     Load_Steps(photos) + Window_Picture("Form1", "window_1_loaded");
  const std::vector<std::size_t> trees = Trees_To_Measure(scene, photos);
  for (std::size_t i = 0; i < trees.size(); ++i) {
    text += Measure_Steps(scene, photos, trees[i], i + 1 == kPictureAfter);
  }
  return text;
}

std::string First_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::size_t index = Start_Tree(scene);
  const Tree& tree = scene.trees[index];
  return "# The first tree top of a session: nothing to start from, then the solution is reset.\n" +
         Load_Steps(photos) + "menu Center_To_Sub_c_click\nsay \"tree " + std::to_string(tree.id) +
         "\"\n" + Click_Steps(scene, photos, index, {tree.X, tree.Y, tree.TopZ}) +
         "menu Point_Intersection\nprint Label10\nprint Label3\n"
         "menu Reset_Point_Solution\nmenu Point_Intersection\nprint Solution3D\nprint Label10\n";
}

std::string Open_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  std::string text =
      "# The demo site on the screen, centred on the top of a tree.\n" + Load_Steps(photos);
  const std::vector<std::size_t> trees = Trees_To_Measure(scene, photos);
  if (trees.empty()) return text;
  const auto from_middle = [&](std::size_t tree) {
    return std::hypot(scene.trees[tree].X - kForestWest - kForestSide / 2,
                      scene.trees[tree].Y - kForestSouth - kForestSide / 2);
  };
  const Tree& tree =
      scene.trees[*std::min_element(trees.begin(), trees.end(), [&](std::size_t a, std::size_t b) {
        return from_middle(a) < from_middle(b);
      })];
  return text + Centre_Steps({tree.X, tree.Y, tree.TopZ});
}

}  // namespace sylvomex::demo
