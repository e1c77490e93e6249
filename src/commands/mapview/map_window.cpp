// SPDX-License-Identifier: MIT
#include "commands/mapview/map_window.h"

#include <memory>
#include <utility>

#include "imageblock/bitmap_file.h"
#include "mapview/map_renderer.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/chosen_file.h"
#include "services/hourglass.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

constexpr const char* kScratchBitmap = "f:\\Map.BMP";
constexpr const char* kPanePointer = "c:\\data\\CROSS03.CUR";
constexpr int kZoomInButton = 1, kZoomOutButton = 2;

void Show_Zoom(Workspace& w) {
  w.Form8.Label2.Caption = "Zoom " + Format(w.Map.View.MapZoom, "# %");
}

// What a window that is not loaded yet begins with.
void Form8_Load(Workspace& w) {
  Form8State& form = w.Form8;
  form.Picture1.PointerFile = kPanePointer;
  form.Picture1.MousePointer = PointerShape::Custom;
  form.Label1.Caption.clear();
  form.Option1.Value = 0;
  Load_Picture(form.Picture1, nullptr);
  w.Map.View.MapZoom = 1.0;
  Show_Zoom(w);
  Form8_Resize(w);
}

std::string Reach_Of_View(const MapHeader& map, const MapView& view) {
  return "a view from column " + Plain_Text(view.MapFirstCol) + ", row " +
         Plain_Text(view.MapFirstRow) + " at zoom " + Plain_Text(view.MapZoom) +
         " leaves the map of " + Plain_Text(map.MapWidth) + " x " + Plain_Text(map.MapHeight);
}

PaneBitmap Cut_Out(Workspace& w, const MapHeader& map, const MapView& view) {
  const std::string& name = map.MapFileName.Trimmed();
  if (name.empty()) throw RunTimeError(Failure::FileNotFound, "no map is open");
  const MappedFile& file = w.Map.File.Open(w.Drives.Locate(name));
  bool is_told = false;
  return Render_Map(file.Bytes(), file.File(), map, view, [&] {
    if (!is_told) Tell_Cause(w, Reach_Of_View(map, view));
    is_told = true;
    w.screen->Message_Box("In create BMP: exceeding allowed indeces");
  });
}

// Map and view are taken over when the picture stands.
void Show_Map(Workspace& w, const MapHeader& map, const MapView& view) {
  const HourglassGuard hourglass(w.Form8.Picture1, PointerShape::Custom);
  auto bitmap = std::make_shared<const PaneBitmap>(Cut_Out(w, map, view));
  // The pane is a multiple of 4 pixels wide: the file's rows are the picture's, without a pad.
  Replace_Pane_Bitmap(w.Drives.Locate(kScratchBitmap), *bitmap);
  w.Map.Header = map;
  w.Map.View = view;
  Load_Picture(w.Form8.Picture1, std::move(bitmap));
}

}  // namespace

void Open_Map_Window(Workspace& w) {
  if (!w.Form8.Visible) Form8_Load(w);
  w.Form8.Visible = true;
  Set_Focus(w.Form8, "");
}

void Exit_Map_Window(Workspace& w) {
  w.Form8.Visible = false;
  Set_Focus(w.Form1, "");
}

void Form8_Resize(Workspace& w) {
  Size_Map_Pane(w.Map.View, w.Form8.ClientWidth, w.Form8.ClientHeight);
  w.Form8.Picture1.Width = w.Map.View.MapPaneWidth;
  w.Form8.Picture1.Height = w.Map.View.MapPaneHeight;
}

void Open_a_Map(Workspace& w) {
  const auto chosen = Ask_File(w, {"Header file for a 2D MAP", "Set files (*.hdr)|*.hdr", 1, ""});
  if (!chosen) return;
  ListReader header(*chosen);
  MapView view = w.Map.View;
  Show_Map_Start(view);
  const MapHeader map = Read_Map_Header(header);
  Named_In(w, chosen->name, [&] { Show_Map(w, map, view); });
}

void Form8_Picture1_MouseDown(Workspace& w, int button, double px, double py) {
  MapView view = w.Map.View;
  const MapCell centre = Map_Cell_At(view, px, py);
  if (button == kZoomOutButton) view.MapZoom *= 0.5;
  if (button == kZoomInButton) view.MapZoom *= 2;
  About(w, "the view of the map at zoom " + Plain_Text(view.MapZoom),
        [&] { Centre_Map_View(view, w.Map.Header.MapHeight, centre); });
  Show_Map(w, MapHeader(w.Map.Header), view);
  if (button == kZoomOutButton || button == kZoomInButton) Show_Zoom(w);
}

void Form8_Picture1_MouseMove(Workspace& w, double px, double py) {
  const MapPosition at = Map_Position_At(w.Map.Header, w.Map.View, px, py);
  w.Form8.Label1.Caption = Plain_Text(To_Int32(at.col)) + " , " + Plain_Text(To_Int32(at.row)) +
                           "    " + Format(at.X, "#.00") + " , " + Format(at.Y, "#.00");
}

}  // namespace sylvomex
