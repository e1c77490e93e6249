// SPDX-License-Identifier: MIT
#include "panes/pane_layout.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/memory_room.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kMostPanes = 9;
constexpr int kSmallestSide = 4;  // minimum when the window leaves no room

// The side before it is made a multiple of 4. The last rule tests the height less 140 but uses the
// height less 200: both numbers are required.
double Side_By_Rule(double width, double height, int images) {
  if (images <= 3) {
    const double across = (width - 80) / images;
    return height - 80 > across ? across : height - 80;
  }
  const double across = (width - 140) / 3;
  if (images <= 6) return (height - 140) / 2 > across ? across : (height - 140) / 2;
  return (height - 140) / 3 > across ? across : (height - 200) / 3;
}

void Show(Control& control, bool shown) {
  control.Visible = shown;
  control.Enabled = shown;
}

void Show_Pane(Form1State& form, int k, bool shown) {
  Show(form.Picture1(k), shown);
  Show(form.Label1(k), shown);
  Show(form.Check1(k), shown);
  Show(form.Text1(2 * k), shown);
  Show(form.Text1(2 * k + 1), shown);
  Show(form.Text12(k), shown);
}

void Place_Pane(Workspace& w, int k) {
  Form1State& form = w.Form1;
  const int row = k / 3;
  const int column = k % 3;
  const int row_gap = row > 0 ? 40 : 0;
  Picture& picture = form.Picture1(k);
  picture.Left = column * w.PaneWidth + 3 + 3 * column;
  picture.Top = row * w.PaneHeight + 96 + row_gap * row;
  picture.Width = w.PaneWidth + 4;
  picture.Height = w.PaneHeight + 4;

  Label& read_out = form.Label1(k);
  read_out.Left = picture.Left;
  read_out.Top = picture.Top - 20;
  read_out.Width = 3 * form.Text1(k).Width;

  CheckBox& use = form.Check1(k);
  use.Left = picture.Left + 200;
  use.Top = picture.Top - 25;
  use.Width = 200;
  use.Caption = "Use: " + Plain_Text(w.ImageBlock(k).ImageId);

  TextBox& x = form.Text1(2 * k);
  TextBox& y = form.Text1(2 * k + 1);
  x.Top = y.Top = picture.Top - 40;
  x.Left = picture.Left;
  y.Left = picture.Left + 60;

  TextBox& position = form.Text12(k);
  position.Top = picture.Top - 40;
  position.Left = picture.Left + 2 * x.Width;
  position.Height = form.Text1(k).Height;
  position.Width = form.Text1(k).Width;
}

}  // namespace

int Pane_Side(double client_width, double client_height, int image_count) {
  if (image_count <= 0 || image_count > kMostPanes) return 0;
  const int side = std::max<int>(kSmallestSide,
                                 To_Int16(Side_By_Rule(client_width, client_height, image_count)));
  return side + (3 * side) % 4;
}

void Require_Room_For_Panes(int side, int panes) {
  constexpr std::uint64_t kBytesPerPixel = 3;
  constexpr int kInTheMaking = 2;  // rendered, and as the contents of its scratch file
  const auto pixels = static_cast<std::uint64_t>(side) * static_cast<std::uint64_t>(side);
  Require_Memory(kBytesPerPixel * pixels * static_cast<std::uint64_t>(panes + kInTheMaking),
                 std::to_string(panes) + (panes == 1 ? " pane of " : " panes of ") +
                     std::to_string(side) + " x " + std::to_string(side) + " pixels");
}

void Compute_Pane_Size(Workspace& w) {
  const int side = Pane_Side(w.Form1.ClientWidth, w.Form1.ClientHeight, w.ImageCount);
  if (side == 0) return;
  w.PaneWidth = w.PaneHeight = To_Int16(side);
}

void Lay_Out_Panes(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) {
    Show_Pane(w.Form1, k, true);
    Place_Pane(w, k);
    w.Form1.Label2.Caption =
        "Measurement number: " + Plain_Text(std::int32_t{w.NextMeasurementNumber});
  }
  for (int k = w.ImageCount; k < kMostPanes; ++k) Show_Pane(w.Form1, k, false);
}

}  // namespace sylvomex
