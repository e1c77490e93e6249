// SPDX-License-Identifier: MIT
// Drawing primitives of the evaluation graphs: title, axes, dots, segments, legend. A GraphScale
// maps values to pane positions; the pen is left at width 1.
#pragma once

#include <string>
#include <string_view>

#include "evaluation/graph_scale.h"
#include "state/picture.h"

namespace sylvomex::graph {

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kGrey{150, 150, 150};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kGreen{0, 255, 0};
inline constexpr Colour kBlue{0, 0, 255};

GraphSize Size_Of(const Picture& pane);

/// Fills the pane with white and removes earlier drawings.
void Lay_Paper(Picture& pane);

void Put_Dot(Picture& pane, GraphPosition at, Colour colour, int width);
void Draw_Segment(Picture& pane, GraphPosition from, GraphPosition to, Colour colour,
                  int width = 1);

/// at: the top left corner of the text.
void Print_At(Picture& pane, GraphPosition at, std::string_view text, Colour colour = kBlack);

/// Clears the pane to white and prints the title in bold at its top.
void Begin_Graph(Picture& pane, std::string_view title);

/// Prints a line of results below the title; lines are counted from 0.
void Print_Result(Picture& pane, int line, std::string_view text);

/// Whether a position lies where the title, the results, a legend at the right edge or the numbers
/// of the lower axis stand.
bool Is_Among_Texts(const Picture& pane, GraphPosition at);

/// Place of an axis' name: at the axis' end or, for the upward axis, at its foot, where a round
/// plan has no values.
enum class AxisName { AtItsEnd, AtItsFoot };

/// One of the two axes: ticks at the multiples of step between the margins, labelled with the
/// pattern, and the axis' name.
struct Axis {
  Interval values;
  double step = 1;
  const char* pattern = "0";
  const char* measures = "";
  AxisName name = AxisName::AtItsEnd;
};
void Draw_X_Axis(Picture& pane, const GraphScale& scale, const Axis& axis);
void Draw_Y_Axis(Picture& pane, const GraphScale& scale, const Axis& axis);

/// Position of line k of a legend: counted upward from the lower axis, downward from the title at
/// the left or right edge, or downward from below the results.
GraphPosition Low_Legend(const Picture& pane, int line);
GraphPosition Top_Legend(int line);
GraphPosition Right_Legend(const Picture& pane, int line);
GraphPosition High_Legend(int line);

/// A dot and its meaning.
void Print_Legend(Picture& pane, GraphPosition at, Colour colour, int width, std::string_view text);

}  // namespace sylvomex::graph
