// SPDX-License-Identifier: MIT
#include "demo/write/product_session.h"

#include <algorithm>
#include <cmath>

#include "demo/scene/surface_photographs.h"
#include "demo/write/exact_text.h"
#include "demo/write/image_files.h"
#include "demo/write/session_steps.h"
#include "demo/write/surface_session.h"
#include "platform/files.h"
#include "platform/rounding.h"
#include "products/sub_image.h"

namespace sylvomex::demo {
namespace {

constexpr double kOrthoMargin = (kForestSide - kOrthoSide) / 2;
constexpr int kTargetsAside = 10;
constexpr double kDiscRadius = 6;  // pixels
constexpr int kSubPixels = 8;      // a side, for the discs' edges
constexpr double kCutBuffer = 60;  // metres about the middle of the forest
constexpr int kPaneOfThree = 400;  // pixels, of three images in 1280 x 1024
constexpr std::size_t kMostTops = 10;
constexpr double kTopReach = 25;  // metres from the middle of the cut-outs

Point3D Middle(const Scene& scene) {
  const double X = kForestWest + kForestSide / 2, Y = kForestSouth + kForestSide / 2;
  return {X, Y, Ground_Height(scene, X, Y)};
}

/// Share of a raw pixel that a disc about a full-image position covers.
double Covered_Share(const RawPixelCentre& pixel, const PixelPosition& disc) {
  int inside = 0;
  for (int i = 0; i < kSubPixels; ++i) {
    for (int j = 0; j < kSubPixels; ++j) {
      const double dx = pixel.col - disc.col + (i + 0.5) / kSubPixels - 0.5;
      const double dy = pixel.row - disc.row + (j + 0.5) / kSubPixels - 0.5;
      inside += dx * dx + dy * dy <= kDiscRadius * kDiscRadius ? 1 : 0;
    }
  }
  return static_cast<double>(inside) / (kSubPixels * kSubPixels);
}

struct PixelSpan {
  int first = 0, last = 0;
};

/// Whole pixels that a disc about a position may touch, of a raw file's 0 to count - 1.
PixelSpan Around(double position, double count) {
  return {static_cast<int>(std::max(0.0, std::floor(position - kDiscRadius - 1))),
          static_cast<int>(std::min(count - 1, std::floor(position + kDiscRadius + 1)))};
}

void Paint_Disc(const ImageRecord& image, const PixelPosition& disc,
                std::vector<std::uint8_t>& pixels) {
  const double raw_col = disc.col - image.SubColOrigin;
  const double raw_row = image.FullHeight - 1 - disc.row - image.SubRowOrigin;
  const PixelSpan rows = Around(raw_row, image.SubHeight), cols = Around(raw_col, image.SubWidth);
  for (int row = rows.first; row <= rows.last; ++row) {
    for (int col = cols.first; col <= cols.last; ++col) {
      const double share = Covered_Share(Centre_Of_Raw_Pixel(image, col, row), disc);
      const auto at = static_cast<std::size_t>(row * image.SubWidth + col);
      pixels[at] = std::max(pixels[at], To_Byte(255 * share));
    }
  }
}

std::string Number_Steps(std::initializer_list<double> numbers) {
  std::string text;
  for (const double number : numbers) text += "input " + Fixed_Decimals(number, 2) + "\n";
  return text;
}

std::string Grid_Steps() {
  const OrthoGrid grid = Product_Grid();
  return Number_Steps({grid.X0, grid.Y0, kOrthoSide, kOrthoSide, grid.pixel});
}

std::string Ortho_Steps(int image, const std::string& name) {
  return "input " + std::to_string(image) + "\n" + Grid_Steps() +
         "input 160\ninput c:\\data\\demo\\" + name + ".raw\nmenu Orto\n";
}

std::string Model_Steps(const char* header) {
  return std::string("file c:\\data\\demo\\") + header + "\ninput 0.00\nmenu Add_height_Model\n";
}

/// The photographs as cut-outs of the session's own.
std::vector<Photograph> Cut_Outs(const Scene& scene, const std::vector<Photograph>& strip) {
  std::vector<Photograph> cuts;
  for (Photograph photo : strip) {
    const GroundBuffer buffer{Middle(scene), kCutBuffer, kCutBuffer};
    const std::string name = "c:\\data\\B4_" + std::to_string(photo.image.ImageId);
    photo.image = Cut_Out_Record(photo.image, Rectangle_Around(photo.image, photo.camera, buffer),
                                 name + ".raw");
    photo.header_name = name + ".hdr";
    cuts.push_back(photo);
  }
  return cuts;
}

std::vector<Point3D> Tops_In_Cut_Outs(const Scene& scene, const std::vector<Photograph>& strip) {
  const Point3D middle = Middle(scene);
  std::vector<Point3D> tops;
  for (const SurfacePlace& place : Crown_Places(scene, strip, 0)) {
    const double away = std::hypot(place.truth.X - middle.X, place.truth.Y - middle.Y);
    if (away < kTopReach && tops.size() < kMostTops) tops.push_back(place.truth);
  }
  return tops;
}

std::string Top_Steps(const char* kind, const std::vector<Photograph>& photos, const Point3D& top) {
  std::string text = std::string("\nsay \"") + kind + " " + Fixed_Decimals(top.X, 3) + " " +
                     Fixed_Decimals(top.Y, 3) + " " + Fixed_Decimals(top.Z, 3) + "\"\n" +
                     Centre_Steps(top);
  for (std::size_t k = 0; k < photos.size(); ++k) {
    const auto [col, row] = Object_To_Pixel(photos[k].camera, top);
    const PaneView view = View_Centred_On(photos[k], top, kPaneOfThree);
    const PanePosition at = Full_Image_To_Pane(photos[k].image, view, col, row);
    text += "click Picture1(" + std::to_string(k) + ") " +
            Fixed_Decimals(Round_Half_Even(2 * at.px) / 2, 1) + " " +
            Fixed_Decimals(Round_Half_Even(2 * at.py) / 2, 1) + "\n";
  }
  return text + "menu Point_Intersection\nprint Solution3D\nmenu Clear_all\n";
}

std::string Cut_Out_Steps(const Scene& scene, const std::vector<Photograph>& strip) {
  const std::vector<Point3D> tops = Tops_In_Cut_Outs(scene, strip);
  const std::vector<Photograph> cuts = Cut_Outs(scene, strip);
  std::string text =
      "\n# Cut-outs, measured beside the full images.\n"
      "file c:\\data\\demo\\cut_points.txt\nmenu Write_SUB_images\n";
  for (const Point3D& top : tops) text += Top_Steps("full", strip, top);
  text += "\ninput 100\nmenu Remove_an_image\n";
  for (const Photograph& cut : cuts)
    text += "file " + cut.header_name + "\nmenu Add_images_to_set\n";
  for (const Point3D& top : tops) text += Top_Steps("cut", cuts, top);
  return text + Window_Picture("Form1", "cut_outs");
}

std::string Index_Table(const std::vector<Photograph>& strip) {
  std::string table;
  for (const Photograph& photo : strip) {
    const ImageRecord& image = photo.image;
    table += std::to_string(image.ImageId) + ",1";
    for (const double value : {image.PrincipalDistance, image.Omega, image.Phi, image.Kappa,
                               image.X0, image.Y0, image.Z0}) {
      table += "," + Exact_Text(value);
    }
    table += ",demo," + photo.header_name + ",index\n";
  }
  return table;
}

std::string Cut_Point_Line(const Scene& scene) {
  const Point3D middle = Middle(scene);
  std::string line;
  for (const double value : {middle.X, middle.Y, middle.Z, kCutBuffer, kCutBuffer}) {
    line += Exact_Text(value) + ",";
  }
  return line + "middle\n";
}

std::string Zone_Lines(const Scene& scene) {
  std::string lines;
  for (const Zone& zone : Product_Zones(scene)) {
    lines += Exact_Text(zone.centre.X) + "," + Exact_Text(zone.centre.Y) + "," +
             Exact_Text(zone.centre.Z) + "," + std::to_string(zone.id) + "," +
             Exact_Text(zone.radius) + "\n";
  }
  return lines;
}

}  // namespace

OrthoGrid Product_Grid() {
  return Make_Ortho_Grid(kForestWest + kOrthoMargin, kForestSouth + kOrthoMargin, kOrthoSide,
                         kOrthoSide, kOrthoPixel);
}

std::vector<Point3D> Target_Places(const Scene& scene) {
  constexpr double kSpacing = 25.3, kFirst = 36.1;  // metres; not whole cells
  std::vector<Point3D> places;
  for (int i = 0; i < kTargetsAside; ++i) {
    for (int j = 0; j < kTargetsAside; ++j) {
      const double X = kForestWest + kFirst + kSpacing * i,
                   Y = kForestSouth + kFirst + kSpacing * j;
      places.push_back({X, Y, Ground_Height(scene, X, Y)});
    }
  }
  return places;
}

Photograph Target_Image(const Photograph& photo) {
  Photograph targets = photo;
  targets.image.ImageId = 9000;
  targets.image.ColorFlag = 0;
  targets.image.RawFileName = "c:\\data\\demo\\targets.raw";
  targets.header_name = "c:\\data\\demo\\targets.hdr";
  return targets;
}

std::vector<std::uint8_t> Target_Pixels(const Photograph& image,
                                        const std::vector<Point3D>& places) {
  std::vector<std::uint8_t> pixels(
      static_cast<std::size_t>(image.image.SubWidth * image.image.SubHeight));
  for (const Point3D& place : places) {
    Paint_Disc(image.image, Object_To_Pixel(image.camera, place), pixels);
  }
  return pixels;
}

std::vector<Zone> Product_Zones(const Scene& scene) {
  const auto zone = [&](double x, double y, int id, double radius) {
    const Point3D centre{kForestWest + x, kForestSouth + y,
                         Ground_Height(scene, kForestWest + x, kForestSouth + y)};
    return Zone{centre, id, radius};
  };
  // The mask begins at the lowest centre: a first small circle keeps the others whole.
  return {zone(110, 135, 10, 1), zone(120, 150, 50, 5), zone(150, 150, 100, 5),
          zone(180, 150, 150, 5)};
}

void Write_Product_Files(const Scene& scene, const std::vector<Photograph>& photos,
                         const DriveMap& drives) {
  const std::vector<Photograph> strip = Whole_Image_Photographs(photos);
  const Photograph targets = Target_Image(strip[1]);
  Write_Photograph(targets, Target_Pixels(targets, Target_Places(scene)), drives);
  Write_Whole_File(drives.Locate("c:\\data\\demo\\cut_points.txt"), Cut_Point_Line(scene));
  Write_Whole_File(drives.Locate("c:\\data\\demo\\zones.txt"), Zone_Lines(scene));
  Write_Whole_File(drives.Locate("c:\\data\\Cam_Data_j_533.csv"), Index_Table(strip));
}

std::string Product_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> strip = Whole_Image_Photographs(photos);
  return "# Orthoimages over the ground and over the canopy, a mosaic, an index.\n" +
         Load_Steps(strip) + Ortho_Steps(1, "ortho_ground") + Model_Steps("chm.hdr") +
         Ortho_Steps(1, "ortho_canopy") + Model_Steps("dem.hdr") + Grid_Steps() +
         "input c:\\data\\demo\\ortho_block.raw\nmenu OrthoBlock\n" +
         "input 533\ninput 10\ninput 0\nmenu Create_An_OrthoIndex\n" +
         "file c:\\data\\demo\\zones.txt\ncommand Create_Zonal\n" + Cut_Out_Steps(scene, strip) +
         "\n# Known targets.\ninput 100\nmenu Remove_an_image\nfile " +
         Target_Image(strip[1]).header_name + "\nmenu Add_images_to_set\n" +
         Ortho_Steps(0, "ortho_targets");
}

std::string Map_Session() {
  const std::string open = "menu Form8.Open_a_Map\n";
  return "# The orthoimage and the mosaic as maps.\nmenu Open_Map_Window\nresize Form8 640 460\n"
         "file c:\\data\\demo\\map.hdr\n" +
         open +
         "click Form8.Picture1 560 430 middle\nmove Form8.Picture1 318 227\nprint Form8.Label1\n" +
         Window_Picture("Form8", "map") + "file c:\\data\\demo\\mosaic.hdr\n" + open +
         "click Form8.Picture1 620 210 middle\nclick Form8.Picture1 550 227 middle\nmove "
         "Form8.Picture1 318 227\nprint Form8.Label1\n" +
         Window_Picture("Form8", "mosaic");
}

}  // namespace sylvomex::demo
