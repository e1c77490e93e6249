// SPDX-License-Identifier: MIT
#include "commands/crowns/crown_drawing.h"

#include "state/workspace.h"

#include <algorithm>

#include "panes/pane_drawing.h"
#include "platform/rounding.h"

namespace sylvomex {
namespace {

constexpr Colour kEchoColours[] = {
    {128, 128, 128}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}};
constexpr Colour kRingColours[] = {
    {128, 128, 128}, {255, 0, 0}, {0, 255, 0}, {0, 100, 255}, {255, 255, 0}};

void Draw_Dash(Workspace& w, int image, const RingDash& dash, Colour colour) {
  const PanePosition from = Overlay_Of_Point(w, image, dash.from);
  const PanePosition to = Overlay_Of_Point(w, image, dash.to);
  Draw_Line(w.Form1.Picture1(image), from.px, from.py, to.px, to.py, colour);
}

}  // namespace

Colour Echo_Colour(int species) { return kEchoColours[species]; }

Colour Ring_Colour(int species) { return kRingColours[species]; }

Colour Depth_Colour(double depth) {
  const std::uint8_t others = To_Byte(std::clamp(255 - 10 * depth, 0.0, 255.0));
  return {255, others, others};
}

void Draw_Ring(Workspace& w, const CrownRecord& crown, double depth, Colour colour, int width) {
  for (int k = 0; k < w.ImageCount; ++k) w.Form1.Picture1(k).DrawWidth = width;
  for (const RingDash& dash : Crown_Ring(crown, depth)) {
    for (int k = 0; k < w.ImageCount; ++k) {
      const ImageRecord& camera = w.ImageBlock(k);
      if (Faces_Camera(dash, crown, camera.X0, camera.Y0)) Draw_Dash(w, k, dash, colour);
    }
  }
  w.screen->Service_Events();
}

}  // namespace sylvomex
