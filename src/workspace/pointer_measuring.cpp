// SPDX-License-Identifier: MIT
#include "workspace/pointer_measuring.h"

#include "commands/crowns/multi_size_click.h"
#include "commands/solver/epipolar_and_sun.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "state/camera_access.h"
#include "state/workspace.h"
#include "workspace/menu_table.h"

namespace sylvomex {
namespace {

constexpr Colour kCrossColour{5, 255, 211};
constexpr double kPositionBoxWidth = 100;

// Row first, counted from the top.
void Show_Pixel_Position(Workspace& w, int pane, double px, double py) {
  const ImageRecord& image = w.ImageBlock(pane);
  const PaneView& view = w.PaneViews(pane);
  const double top_down_row = Pane_To_Top_Down_Row(image, view, py);
  const double col = Pane_To_Full_Image(image, view, px, py).col;
  TextBox& box = w.Form1.Text12(pane);
  box.Text = Format(top_down_row, "#.0") + "    " + Format(col, "#.0");
  box.Width = kPositionBoxWidth;
  box.Enabled = true;
}

void Store_Observation(Workspace& w, int pane, double px, double py) {
  const PixelPosition at = Pixel_Of_Pane(w, pane, px, py);
  const FilmPosition film = Pixel_To_Image(w, pane, at);
  w.Form1.Text1(2 * pane).Text = Format(film.x, "0.#######");
  w.Form1.Text1(2 * pane + 1).Text = Format(film.y, "0.#######");
}

void Draw_Gapped_Cross(Picture& picture, double px, double py) {
  Draw_Line(picture, px, py - 5, px, py - 2, kCrossColour);
  Draw_Line(picture, px, py + 2, px, py + 5, kCrossColour);
  Draw_Line(picture, px - 5, py, px - 2, py, kCrossColour);
  Draw_Line(picture, px + 2, py, px + 5, py, kCrossColour);
}

void Run_Modes_That_Follow(Workspace& w, int pane) {
  if (w.Menu.Measure_Surface && pane == 0) Run_Menu_Command(w, "Get_Surface_Height");
  if (w.Menu.Measure_Triplet && pane == 1) {
    Run_Menu_Command(w, "Get_surface_single_point_triplet");
  }
  if (w.Menu.Measure_tree_tops_By_Matching) Multi_Size_Click(w, pane);
}

}  // namespace

void Measuring_Click(Workspace& w, int pane, double px, double py) {
  Show_Pixel_Position(w, pane, px, py);
  Store_Observation(w, pane, px, py);
  Erase_Marks(w.Form1.Picture1(pane));
  Draw_Gapped_Cross(w.Form1.Picture1(pane), px, py);
  w.CurrentImage = static_cast<std::int16_t>(pane);
  if (w.options.AutoEpipolar) Draw_Epipolar_Line(w);
  Run_Modes_That_Follow(w, pane);
  w.Form1.Check1(pane).Value = 1;
}

}  // namespace sylvomex
