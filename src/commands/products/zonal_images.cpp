// SPDX-License-Identifier: MIT
#include "commands/products/zonal_images.h"

#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "platform/work_meter.h"
#include "products/zonal_image.h"
#include "services/chosen_file.h"
#include "services/hourglass.h"
#include "state/camera_access.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

/// The solution is the last circle's from the first mask on, also when a mask cannot be written.
void Write_Mask(Workspace& w, int k, const std::vector<GroundCircle>& circles) {
  const Camera camera = Camera_Of(w, k);
  const PixelArea area = Area_Of_Circles(camera, circles);
  const ZeroedArray<std::uint8_t> mask = Zonal_Mask(camera, area, circles);
  w.Solution3D = circles.back().centre;
  w.SolutionValid = true;
  const std::string name = "d:\\" + Plain_Text(w.ImageBlock(k).ImageId) + "_Zonal.raw";
  Replace_Whole_File(w.Drives.Locate(name), mask.All());
}

}  // namespace

void Create_Zonal(Workspace& w) {
  const auto file = Ask_File(w, {"File with X,Y,Z, id, radius", "TXT files (*.txt)|*.txt", 1, ""});
  if (!file) return;
  const std::vector<GroundCircle> circles = Read_Ground_Circles(*file);
  const auto count = static_cast<std::int32_t>(circles.size());
  w.screen->Message_Box("Luin " + Plain_Text(count) + " koealan tiedot!");
  if (w.ImageCount == 0) {
    w.screen->Message_Box("There has to be an image, one at least!");
    return;
  }
  if (circles.empty()) return;
  {
    const HourglassGuard hourglass(w);
    WorkMeter meter(w.ImageCount);
    for (int k = 0; k < w.ImageCount; ++k) {
      About(w, Name_Of_Image(w, k), [&] { Write_Mask(w, k, circles); });
      meter.Step();
    }
  }
  w.screen->Message_Box("Done");
}

}  // namespace sylvomex
