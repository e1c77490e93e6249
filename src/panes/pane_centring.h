// SPDX-License-Identifier: MIT
// One pane brought round a centre at its present zoom. RunTimeError(Overflow) for a centre
// column or row that leaves 16 bits.
#pragma once

namespace sylvomex {

struct Workspace;

/// A raw-file position, row from the top.
struct RawCentre {
  int raw_col = 0;
  int raw_row = 0;
};

/// On CenterTarget, which is dotted, under the image's number and scale. Services events.
void Center_One_On_Target(Workspace& w, int image);

/// On CenterTarget, which gets a green block. A grey pane keeps its old bitmap.
void Center_One_On_Pan_Center(Workspace& w, int image);

/// On a position in the raw file. Services events.
void Center_One_On_Raw_Position(Workspace& w, int image, RawCentre centre);

}  // namespace sylvomex
