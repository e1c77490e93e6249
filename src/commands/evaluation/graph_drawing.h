// SPDX-License-Identifier: MIT
// What the graphs of the evaluation are drawn with: title, axes, dots, segments, legend. Values to
// pane positions by a GraphScale; the pen is left at width 1.
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

/// White paper on the pane; what was drawn before is gone.
void Lay_Paper(Picture& pane);

void Put_Dot(Picture& pane, GraphPosition at, Colour colour, int width);
void Draw_Segment(Picture& pane, GraphPosition from, GraphPosition to, Colour colour,
                  int width = 1);

/// at: the top left corner of the text.
void Print_At(Picture& pane, GraphPosition at, std::string_view text, Colour colour = kBlack);

/// Lays the paper and prints the title in bold at its top.
void Begin_Graph(Picture& pane, std::string_view title);

/// A line of results below the title, counted from 0.
void Print_Result(Picture& pane, int line, std::string_view text);

/// Whether a position lies where the title, the results or a legend at the right edge stand.
bool Is_Under_Headings(const Picture& pane, GraphPosition at);

/// Where an axis says what it measures: at its end, or for the axis upward at its foot, where no
/// values stand in a round plan.
enum class AxisName { AtItsEnd, AtItsFoot };

/// One of the two axes: ticks at the multiples of step that fall between the margins, labelled
/// after the pattern, and what the axis measures.
struct Axis {
  Interval values;
  double step = 1;
  const char* pattern = "0";
  const char* measures = "";
  AxisName name = AxisName::AtItsEnd;
};
void Draw_X_Axis(Picture& pane, const GraphScale& scale, const Axis& axis);
void Draw_Y_Axis(Picture& pane, const GraphScale& scale, const Axis& axis);

/// Where line k of a legend stands: counted upward from the lower axis, downward from the title at
/// the left or at the right edge, or downward from below the results.
GraphPosition Low_Legend(const Picture& pane, int line);
GraphPosition Top_Legend(int line);
GraphPosition Right_Legend(const Picture& pane, int line);
GraphPosition High_Legend(int line);

/// A dot and what it stands for.
void Print_Legend(Picture& pane, GraphPosition at, Colour colour, int width, std::string_view text);

}  // namespace sylvomex::graph
