// SPDX-License-Identifier: MIT
#include "session/scale_bar.h"

#include <cmath>

#include "imageblock/pane_view.h"
#include "panes/shown_raster.h"
#include "platform/number_text.h"
#include "solver/camera_model.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kPictureBorders = 4;  // pixels, as of the pictures in PNG

}  // namespace

std::string ScaleBar::Text() const { return Plain_Text(metres) + " m"; }

ScaleBar Scale_Bar_For(double pixels_of_a_metre, double width) {
  const double most = width / 4 / pixels_of_a_metre;
  const double power = std::pow(10, std::floor(std::log10(most)));
  const double steps = most / power;
  const double metres = steps >= 5 ? 5 * power : steps >= 2 ? 2 * power : power;
  return {metres, metres * pixels_of_a_metre};
}

std::optional<ScaleBar> Scale_Bar_Of(const Workspace& w, const Picture& picture) {
  if (!w.SolutionValid || picture.bitmap == nullptr) return std::nullopt;
  for (int k = 0; k < w.ImageCount; ++k) {
    if (&w.Form1.Picture1(k) != &picture || w.PaneViews(k).ZoomX == 0 || Shows_Correlation(w, k)) {
      continue;
    }
    const double width = picture.Width - kPictureBorders;
    const double middle = (picture.Height - kPictureBorders) / 2;
    const auto ground = [&](double px) {
      const PixelPosition pixel = Pane_To_Full_Image(w.ImageBlock(k), w.PaneViews(k), px, middle);
      const Camera camera = Camera_Of(w, k);
      return Image_To_Object_At_Z(camera, w.Solution3D.Z, Pixel_To_Image(camera, pixel));
    };
    const auto left = ground(0);
    const auto right = ground(width);
    if (!left || !right) return std::nullopt;
    const double metres = std::hypot(right->X - left->X, right->Y - left->Y);
    if (!(metres > 0 && metres < 1e9)) return std::nullopt;
    return Scale_Bar_For(width / metres, width);
  }
  return std::nullopt;
}

}  // namespace sylvomex
