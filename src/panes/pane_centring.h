// SPDX-License-Identifier: MIT
// Centring one pane at its current zoom. RunTimeError(Overflow) for a centre column or row beyond
// 16 bits.
#pragma once

namespace sylvomex {

struct Workspace;

/// Pane position, right and down, of the line of text that tells the image and its scale.
inline constexpr double kCornerText = 5;

/// A raw-file position, row from the top.
struct RawCentre {
  int raw_col = 0;
  int raw_row = 0;
};

/// On CenterTarget, marked with a dot; prints the image's number and scale above. Services events.
void Center_One_On_Target(Workspace& w, int image);

/// On the pan centre, marked with a green block. A grey pane keeps its old bitmap.
void Center_One_On_Pan_Center(Workspace& w, int image);

/// On a position in the raw file. Services events.
void Center_One_On_Raw_Position(Workspace& w, int image, RawCentre centre);

}  // namespace sylvomex
