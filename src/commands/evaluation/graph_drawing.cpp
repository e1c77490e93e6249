// SPDX-License-Identifier: MIT
#include "commands/evaluation/graph_drawing.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/number_text.h"

namespace sylvomex::graph {
namespace {

constexpr int kPaneBorder = 4;  // pixels that a pane's frame takes from width and height
constexpr double kTextLeft = 26, kLegendLeft = 50;
constexpr double kResultTop = 21, kResultStep = 15;  // below the title
constexpr double kAxisTop = 54;                      // below the results
constexpr double kTickLength = 4;
constexpr double kDigitWidth = 6, kHalfLine = 7;
constexpr double kTitleSize = 10, kTextSize = 8;

int Whole_Side(double side) { return std::max(1, static_cast<int>(side) - kPaneBorder); }

double Text_Width(std::string_view text) { return kDigitWidth * static_cast<double>(text.size()); }

}  // namespace

GraphSize Size_Of(const Picture& pane) { return {pane.Width, pane.Height}; }

void Lay_Paper(Picture& pane) {
  auto paper = std::make_shared<PaneBitmap>();
  paper->width = Whole_Side(pane.Width);
  paper->height = Whole_Side(pane.Height);
  paper->bgr.assign(3 * static_cast<std::size_t>(paper->width) * paper->height, 255);
  Load_Picture(pane, std::move(paper));
}

void Put_Dot(Picture& pane, GraphPosition at, Colour colour, int width) {
  pane.DrawWidth = width;
  Plot_Point(pane, at.px, at.py, colour);
  pane.DrawWidth = 1;
}

void Draw_Segment(Picture& pane, GraphPosition from, GraphPosition to, Colour colour, int width) {
  pane.DrawWidth = width;
  Draw_Line(pane, from.px, from.py, to.px, to.py, colour);
  pane.DrawWidth = 1;
}

void Print_At(Picture& pane, GraphPosition at, std::string_view text, Colour colour) {
  pane.font.size = kTextSize;
  pane.font.bold = false;
  pane.ForeColor = colour;
  pane.CurrentX = at.px;
  pane.CurrentY = at.py;
  Print_Text(pane, text);
}

void Begin_Graph(Picture& pane, std::string_view title) {
  Lay_Paper(pane);
  pane.font.size = kTitleSize;
  pane.font.bold = true;
  pane.ForeColor = kBlack;
  pane.CurrentX = kTextLeft;
  pane.CurrentY = 3;
  Print_Text(pane, title);
}

void Print_Result(Picture& pane, int line, std::string_view text) {
  Print_At(pane, {kTextLeft, kResultTop + line * kResultStep}, text);
}

bool Is_Among_Texts(const Picture& pane, GraphPosition at) {
  constexpr double kTitleRight = 235, kLegendRoom = 80, kLegendBottom = 88;
  if (at.py > pane.Height - kAxisMargin) return true;
  if (at.px < kTitleRight) return at.py < kAxisTop;
  return at.px > pane.Width - kLegendRoom && at.py < kLegendBottom;
}

void Draw_X_Axis(Picture& pane, const GraphScale& scale, const Axis& axis) {
  const double right = pane.Width - kAxisMargin, bottom = pane.Height - kAxisMargin;
  Draw_Segment(pane, {kAxisMargin, bottom}, {right, bottom}, kBlack);
  for (const double tick : Ticks(axis.values, axis.step)) {
    const double px = scale.At(tick, scale.y0).px;
    if (px < kAxisMargin || px > right) continue;
    Draw_Segment(pane, {px, bottom}, {px, bottom + kTickLength}, kBlack);
    const std::string label = Format(tick, axis.pattern);
    Print_At(pane, {px - Text_Width(label) / 2, bottom + 3}, label);
  }
  Print_At(pane, {right - Text_Width(axis.measures), bottom - 2 * kHalfLine - 2}, axis.measures);
}

void Draw_Y_Axis(Picture& pane, const GraphScale& scale, const Axis& axis) {
  const double bottom = pane.Height - kAxisMargin;
  const double name_top =
      axis.name == AxisName::AtItsEnd ? kAxisTop - 2 : bottom - 2 * kHalfLine - 2;
  Draw_Segment(pane, {kAxisMargin, bottom}, {kAxisMargin, kAxisTop}, kBlack);
  for (const double tick : Ticks(axis.values, axis.step)) {
    const double py = scale.At(scale.x0, tick).py;
    if (py < kAxisTop + 2 * kHalfLine || py > bottom - kHalfLine) continue;
    Draw_Segment(pane, {kAxisMargin - kTickLength, py}, {kAxisMargin, py}, kBlack);
    const double label_top = py - 2 * kHalfLine;
    if (std::abs(label_top - name_top) < 2 * kHalfLine + 2) continue;  // the axis' name is there
    Print_At(pane, {kAxisMargin + 3, label_top}, Format(tick, axis.pattern));
  }
  Print_At(pane, {kTextLeft, name_top}, axis.measures);
}

GraphPosition Low_Legend(const Picture& pane, int line) {
  return {kLegendLeft, pane.Height - kAxisMargin - 40 - line * kResultStep};
}

GraphPosition Top_Legend(int line) {
  return {kTextLeft + 4, kResultTop + kHalfLine + line * kResultStep};
}

GraphPosition Right_Legend(const Picture& pane, int line) {
  return {pane.Width - 72, kResultTop + kHalfLine + line * kResultStep};
}

GraphPosition High_Legend(int line) { return {kLegendLeft, kAxisTop + 30 + line * kResultStep}; }

void Print_Legend(Picture& pane, GraphPosition at, Colour colour, int width,
                  std::string_view text) {
  Put_Dot(pane, at, colour, width);
  Print_At(pane, {at.px + 14, at.py - kHalfLine}, text);
}

}  // namespace sylvomex::graph
