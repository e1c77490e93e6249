// SPDX-License-Identifier: MIT
#include "panes/pane_rendering.h"

#include <memory>
#include <string>
#include <utility>

#include "imageblock/bitmap_file.h"
#include "imageblock/pane_renderer.h"
#include "platform/guest_files.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kGammaExponents[] = {0.4, 0.5, 0.6, 1.4, 2.0, 3.0};

// The last checked item wins.
std::optional<GammaTable> Chosen_Gamma(const MenuChecks& menu) {
  std::optional<GammaTable> gamma;
  for (int n = 1; n <= 6; ++n) {
    if (menu.Gamma(n)) gamma = Make_Gamma_Table(kGammaExponents[n - 1]);
  }
  return gamma;
}

std::string Reach_Of_View(const Workspace& w, int image, const ViewWindow& window) {
  const ImageRecord& record = w.ImageBlock(image);
  const auto range = [](int first, int last) {
    return Plain_Text(std::int32_t{first}) + " to " + Plain_Text(std::int32_t{last});
  };
  return Name_Of_Image(w, image) + ": a view of columns " +
         range(window.first_col, window.last_col) + ", rows " +
         range(window.first_row, window.last_row) + " at zoom " +
         Plain_Text(w.PaneViews(image).ZoomX) + " leaves the raw file of " +
         Plain_Text(record.SubWidth) + " x " + Plain_Text(record.SubHeight);
}

}  // namespace

FilePath Scratch_Bitmap(Workspace& w, int image) {
  w.ScratchBmpName = "c:\\data\\pic" + Plain_Text(std::int32_t{image}) + ".bmp";
  return Scratch_File(w.Drives, w.ScratchBmpName.Trimmed());
}

int View_Extent(int pane_size, double zoom) { return To_Int16(pane_size / zoom); }

ViewWindow Fit_View_Window(Workspace& w, int image, int centre_col, int centre_row, int width,
                           int height) {
  const ImageRecord& record = w.ImageBlock(image);
  const ViewWindow window =
      Compute_View_Window(record.SubWidth, record.SubHeight, centre_col, centre_row, width, height);
  if (!window.fits) {
    Show_With_Cause(w, "Pan window is too large",
                    Name_Of_Image(w, image) + ": a view of " + Plain_Text(std::int32_t{width}) +
                        " x " + Plain_Text(std::int32_t{height}) + " pixels, the raw file has " +
                        Plain_Text(record.SubWidth) + " x " + Plain_Text(record.SubHeight));
    return window;
  }
  PaneView& view = w.PaneViews(image);
  About(w, Name_Of_Image(w, image) + ": first column and row of the view", [&] {
    view.ViewCol = To_Int16(window.first_col);
    view.ViewRow = To_Int16(window.first_row);
  });
  return window;
}

PaneBitmap Render_Photograph(Workspace& w, int image, RenderRequest request) {
  const ImageRecord& record = w.ImageBlock(image);
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  const RawPixels raw{file.Bytes(), record.SubWidth, record.SubHeight, &file.File()};
  PaneBitmap bitmap;
  if (record.ColorFlag == 1) {
    request.gamma = Chosen_Gamma(w.Menu);
    Render_Colour(raw, request, bitmap);
  } else {
    Render_Grey(raw, request, bitmap);
  }
  return bitmap;
}

void Render_Scratch_Bitmap(Workspace& w, int image, const ViewWindow& window) {
  const ImageRecord& record = w.ImageBlock(image);
  if (record.ColorFlag > 1 || !Has_Pixels(record)) return;
  const PaneView& view = w.PaneViews(image);
  RenderRequest request;
  request.window = window;
  request.zoom_x = view.ZoomX;
  request.zoom_y = view.ZoomY;
  request.pane_width = w.PaneWidth;
  request.pane_height = w.PaneHeight;
  bool is_told = false;  // the cause once, the message for every pixel
  request.on_exceeding = [&] {
    if (!is_told) Tell_Cause(w, Reach_Of_View(w, image, window));
    is_told = true;
    w.screen->Message_Box("In create BMP: exceeding allowed indeces");
  };
  const PaneBitmap bitmap = Render_Photograph(w, image, std::move(request));
  Write_Pane_Bitmap(Scratch_Bitmap(w, image), bitmap);
}

void Load_Scratch_Bitmap(Workspace& w, int image) {
  if (!Has_Pixels(w.ImageBlock(image))) return Load_Picture(w.Form1.Picture1(image), nullptr);
  auto bitmap = std::make_shared<const PaneBitmap>(Load_Bitmap(Scratch_Bitmap(w, image)));
  Load_Picture(w.Form1.Picture1(image), std::move(bitmap));
}

}  // namespace sylvomex
