// SPDX-License-Identifier: MIT
#include "commands/stereo/stereo_drawing.h"

#include <array>

#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kFloatingReach = 8;  // pixels

struct Pen {
  PenMode mode = PenMode::CopyPen;
  std::int16_t width = 1;
};

Pen Pen_Of(StereoStyle style) {
  switch (style) {
    case StereoStyle::Masked:
      return {PenMode::MaskPen, 1};
    case StereoStyle::Marked:
      return {PenMode::NotMaskPen, 2};
    case StereoStyle::Copied:
      break;
  }
  return {PenMode::CopyPen, 1};
}

Mark Line(const PanePosition& from, const PanePosition& to, Colour colour, const Pen& pen) {
  Mark mark;
  mark.kind = Mark::Kind::Line;
  mark.colour = colour;
  mark.mode = pen.mode;
  mark.width = pen.width;
  mark.x1 = from.px;
  mark.y1 = from.py;
  mark.x2 = to.px;
  mark.y2 = to.py;
  return mark;
}

PanePosition Moved(const PanePosition& at, double right, double down) {
  return {at.px + right, at.py + down};
}

StereoPosition Moved(const StereoPosition& at, double right, double down) {
  return {Moved(at.left, right, down), Moved(at.right, right, down)};
}

}  // namespace

std::vector<Mark> Stereo_Lines(std::span<const StereoPosition> points, StereoStyle style) {
  const Pen pen = Pen_Of(style);
  std::vector<Mark> lines;
  for (std::size_t k = 1; k < points.size(); ++k) {
    lines.push_back(Line(points[k - 1].left, points[k].left, kLeftColour, pen));
  }
  for (std::size_t k = 1; k < points.size(); ++k) {
    lines.push_back(Line(points[k - 1].right, points[k].right, kRightColour, pen));
  }
  return lines;
}

std::vector<Mark> Stereo_Cross(const StereoPosition& at, double reach, StereoStyle style) {
  const std::array across{Moved(at, -reach, 0), Moved(at, reach, 0)};
  const std::array down{Moved(at, 0, -reach), Moved(at, 0, reach)};
  std::vector<Mark> cross = Stereo_Lines(across, style);
  const std::vector<Mark> upright = Stereo_Lines(down, style);
  cross.insert(cross.end(), upright.begin(), upright.end());
  return cross;
}

void Draw_Floating_Mark(Workspace& w) {
  const StereoPosition at = Object_To_Picture(w.Stereo, w.Stereo.StereoSolution);
  Show_Floating(w.Form5.Picture1, Stereo_Cross(at, kFloatingReach, StereoStyle::Marked));
}

}  // namespace sylvomex
