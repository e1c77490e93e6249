// SPDX-License-Identifier: MIT
#include "demo/write/session_steps.h"

#include "demo/write/exact_text.h"
#include "demo/write/truth.h"
#include "imageblock/view_window.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

/// Positions 1 pixel or less from the edge do not count as shown.
bool Is_In_Pane(const PanePosition& at) {
  return at.px > 1 && at.py > 1 && at.px < kSessionPaneSide - 1 && at.py < kSessionPaneSide - 1;
}

double To_Half_Pixel(double value) { return Round_Half_Even(2 * value) / 2; }

}  // namespace

PaneView View_Centred_On(const Photograph& photo, const Point3D& point, int pane_side) {
  const ImageRecord& image = photo.image;
  const auto [col, row] = Object_To_Pixel(photo.camera, point);
  const ViewWindow window = Compute_View_Window(
      image.SubWidth, image.SubHeight, To_Int16(col - image.SubColOrigin),
      To_Int16(image.FullHeight - 1 - row - image.SubRowOrigin), pane_side, pane_side);
  PaneView view;
  if (window.fits) {
    view.ViewCol = To_Int16(window.first_col);
    view.ViewRow = To_Int16(window.first_row);
  }
  view.ViewWidth = view.ViewHeight = To_Int16(pane_side);
  view.ZoomX = view.ZoomY = 1;
  return view;
}

std::string Add_Image_Steps(const std::vector<Photograph>& photos) {
  std::string text;
  for (const Photograph& photo : photos) {
    text += "file " + photo.header_name + "\nmenu Add_images_to_set\n";
  }
  return text;
}

std::string Add_Ground_Steps(const char* header) {
  return std::string("file ") + header + "\ninput 0.00\nmenu Add_height_Model\n";
}

std::string Load_Steps(const std::vector<Photograph>& photos) {
  return Add_Image_Steps(photos) + Add_Ground_Steps("c:\\data\\demo\\dem.hdr");
}

std::string Window_Picture(const char* window, const std::string& stage) {
  return std::string("try screenshot ") + window + " c:\\data\\demo\\" + stage + ".png\n";
}

std::string Solution_Steps(const Point3D& point) {
  std::string text;
  for (const double value : {point.X, point.Y, point.Z}) {
    text += "input " + Fixed_Decimals(value, 2) + "\n";
  }
  return text + "menu Set_3D_solution\n";
}

std::string Centre_Steps(const Point3D& point) {
  return Solution_Steps(point) + "menu Center_to_xyz_click\n";
}

std::string Click_Steps(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree,
                        const Point3D& centre) {
  std::string text;
  const std::vector<TopOnPhoto> tops = Tops_On_Photos(scene, photos, tree);
  for (std::size_t k = 0; k < photos.size(); ++k) {
    if (!tops[k].visible) continue;
    const PaneView view = View_Centred_On(photos[k], centre, kSessionPaneSide);
    const PanePosition at = Full_Image_To_Pane(photos[k].image, view, tops[k].col, tops[k].row);
    if (!Is_In_Pane(at)) continue;
    text += "click Picture1(" + std::to_string(k) + ") " + Fixed_Decimals(To_Half_Pixel(at.px), 1) +
            " " + Fixed_Decimals(To_Half_Pixel(at.py), 1) + "\n";
  }
  return text;
}

}  // namespace sylvomex::demo
