// SPDX-License-Identifier: MIT
#include "demo/write/evaluation_session.h"

#include "demo/write/exact_text.h"
#include "demo/write/field_files.h"
#include "demo/write/image_files.h"
#include "demo/write/match_session.h"
#include "demo/write/session_steps.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

constexpr int kPointSpacing = 30;                                    // metres
constexpr double kFootprintLength = 100, kFootprintWidth = 80;       // half sizes, metres
constexpr const char* kPlotText = "c:\\data\\demo\\match_plot.txt";  // trees around the model tree
constexpr const char* kPlotTrees = "c:\\data\\demo\\match_plot.bin";

std::vector<Point3D> Points_Of_Ground(const Scene& scene) {
  std::vector<Point3D> points;
  for (int y = kPointSpacing; y < kForestSide; y += kPointSpacing) {
    for (int x = kPointSpacing; x < kForestSide; x += kPointSpacing) {
      const double X = kForestWest + x, Y = kForestSouth + y;
      points.push_back({X, Y, Ground_Height(scene, X, Y)});
    }
  }
  return points;
}

std::string Ground_Point_List(const std::vector<Point3D>& points) {
  std::string text;
  int id = 0;
  for (const Point3D& point : points) {
    const std::string number = std::to_string(++id);
    text += number + "," + number + "," + Exact_Text(point.X) + "," + Exact_Text(point.Y) + "," +
            Exact_Text(point.Z) + "\n";
  }
  return text;
}

bool On_Frame(const ImageRecord& image, const PixelPosition& pixel) {
  return pixel.col >= 0 && pixel.col < image.FullWidth && pixel.row >= 0 &&
         pixel.row < image.FullHeight;
}

std::string Film_Point_List(const std::vector<Photograph>& photos,
                            const std::vector<Point3D>& points) {
  std::string text;
  for (const Photograph& photo : photos) {
    int id = 0;
    for (const Point3D& point : points) {
      ++id;
      const auto film = Object_To_Image(photo.camera, point);
      if (!film || !On_Frame(photo.image, Object_To_Pixel(photo.camera, point))) continue;
      text += std::to_string(photo.image.ImageId) + "," + std::to_string(id) + "," +
              Fixed_Decimals(film->x, 6) + "," + Fixed_Decimals(film->y, 6) + "\n";
    }
  }
  return text;
}

std::string Pair_List(const std::vector<Photograph>& photos) {
  std::string text;
  for (std::size_t k = 1; k < photos.size(); ++k) {
    text += std::to_string(photos[k - 1].image.ImageId) + "," +
            std::to_string(photos[k].image.ImageId) + "," + photos[k - 1].header_name + "," +
            photos[k].header_name + "\n";
  }
  return text;
}

std::string Flight_Name(std::size_t k) { return "im" + std::to_string(k + 1); }

void Write_Flight(const std::vector<Photograph>& photos, const DriveMap& drives) {
  std::string lines;
  for (std::size_t k = 0; k < photos.size(); ++k) {
    Write_Whole_File(drives.Locate("e:\\lk\\" + Flight_Name(k) + ".hdr"),
                     Image_Header_Text(photos[k].image));
    lines += Flight_Name(k) + ",1,0," + Fixed_Decimals(kFootprintLength, 0) + "," +
             Fixed_Decimals(kFootprintWidth, 0) + "\n";
  }
  Write_Whole_File(drives.Locate("f:\\lines.txt"), lines);
}

std::string Named_File(const char* name) { return std::string("file ") + name + "\n"; }

}  // namespace

std::string Evaluation_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  return Match_Session(scene, photos) + "# The tops against the trees of the plot.\n" +
         Named_File(kPlotText) + Named_File(kPlotTrees) +
         "command ConvertFieldDataToBinary\nmenu Show_Results_Window\n" + Named_File(kPlotTrees) +
         "menu Form6.Load_Reference_Trees\npress Form6.Show_Results\n"
         "print MatchCount\nprint OmittedCount\nprint CommissionCount\n" +
         Window_Picture("Form6", "evaluation");
}

std::string Orientation_Session() {
  return "# Points of the ground from pairs of photographs.\n"
         "command Compute_Points_From_Pairs\nprint Label10\n"
         "menu Compute_initial_apprx\nprint Label10\n";
}

void Write_Evaluation_Files(const Scene& scene, const std::vector<Photograph>& photos,
                            const DriveMap& drives) {
  const FieldPlot plot = Make_Field_Plot(scene, Model_Tree(scene, photos));
  Write_Whole_File(drives.Locate(kPlotText), Field_Plot_Text(scene, plot));
  const std::vector<Point3D> points = Points_Of_Ground(scene);
  Write_Whole_File(drives.Locate("d:\\Ground_points_nothing.txt"), Ground_Point_List(points));
  Write_Whole_File(drives.Locate("d:\\ima_obs_4.CSV"), Film_Point_List(photos, points));
  Write_Whole_File(drives.Locate("d:\\Stereo_parit.csv"), Pair_List(photos));
  Write_Flight(photos, drives);
}

}  // namespace sylvomex::demo
