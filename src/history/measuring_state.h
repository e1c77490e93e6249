// SPDX-License-Identifier: MIT
// The state of measuring as a value: taken from the block and given back to it, bit for bit.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "history/mark_trail.h"
#include "imageblock/pane_bitmap.h"

namespace sylvomex {

struct Workspace;

inline constexpr int kHistoryPanes = 9;
inline constexpr int kHistoryForms = 4;  // Form1, Form2, Form3, Form7

/// What one pane of the main window shows.
struct PaneState {
  std::string fields;
  std::shared_ptr<const PaneBitmap> bitmap;
  std::shared_ptr<const MarkTrail> marks;
  std::uint64_t erase_version = 0;  // of the picture when it was taken; no part of the state

  /// Equal fields, the same bitmap and the same drawing.
  [[nodiscard]] bool Shows_The_Same(const PaneState& other) const;
};

/// The parts are shared between states: one that did not change between two states exists once.
struct MeasuringState {
  using Bytes = std::shared_ptr<const std::string>;
  Bytes solution, distances, tree;
  std::array<Bytes, kHistoryForms> contents;  // of the windows' controls
  std::array<Bytes, kHistoryForms> places;
  Bytes layout;  // size of the main window and of the panes
  std::array<std::shared_ptr<const PaneState>, kHistoryPanes> panes;  // null: given up, see Restore

  /// Equal in everything.
  bool operator==(const MeasuringState& other) const;
};

/// The block's present state. former: a state taken earlier from the same block, for sharing what
/// has not changed since; a fresh one at first.
MeasuringState Take_State(Workspace& w, const MeasuringState& former);

/// Gives the block a state; what is the same in its present state is not touched. Panes and places
/// of controls stay as they are when the main window had another size then; so does a pane whose
/// picture was given up. Returns the block's state afterwards.
MeasuringState Restore(Workspace& w, const MeasuringState& state, const MeasuringState& present);

/// Memory that a state needs beside another one, bytes: what it does not share with it.
std::size_t Bytes_Beside(const MeasuringState& state, const MeasuringState& other);

/// The images that the block holds; states of different image sets must not be mixed.
std::string Image_Set_Bytes(Workspace& w);

}  // namespace sylvomex
