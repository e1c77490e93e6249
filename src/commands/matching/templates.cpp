// SPDX-License-Identifier: MIT
#include "commands/matching/templates.h"

#include <optional>

#include "commands/matching/matching_inputs.h"
#include "commands/panes/centring.h"
#include "matching/template_cutting.h"
#include "matching/template_ellipse.h"
#include "matching/template_sizes.h"
#include "panes/pane_drawing.h"
#include "panes/pane_zoom.h"
#include "platform/number_text.h"
#include "platform/sound_reads.h"
#include "platform/work_meter.h"
#include "services/kept_file.h"
#include "services/status_line.h"
#include "services/ticked_images.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kPolygonVertices = 101;
constexpr const char* kLogFile = "c:\\data\\imacoordstest.txt";
constexpr const char* kFilmPattern = "0.0000000";

void Take_Parameters(Workspace& w) {
  MatchingState& m = w.Matching;
  m.Parameters.Tw = Number_In(w.Form1.Text5, "Text5");
  m.Parameters.Zd = Number_In(w.Form1.Text6, "Text6");
  m.Parameters.EZA = Number_In(w.Form1.Text7, "Text7");
  m.CaptureSnapshot.Template = m.Parameters;
  m.CaptureSnapshot.Solution = w.Solution3D;
}

std::string Film_Text(FilmPosition film) {
  return Format(film.x, kFilmPattern) + " " + Format(film.y, kFilmPattern);
}

PanePosition Pane_Of_Film(const Workspace& w, int image, FilmPosition film) {
  return Pane_Of_Pixel(w, image, Image_To_Pixel(w, image, film));
}

// Film position of the solution raised by a height.
FilmPosition Film_Of_Solution(const Workspace& w, int image, double raised) {
  const Point3D point{w.Solution3D.X, w.Solution3D.Y, w.Solution3D.Z + raised};
  return Film_Of_Point(Camera_Of(w, image), point);
}

void Lay_Ellipse(Workspace& w, int image, std::string& log) {
  MatchingState& m = w.Matching;
  log += Film_Text(Film_Of_Solution(w, image, 0)) + "\n";
  m.Template(image) =
      Ellipse_Of_Crown(Camera_Of(w, image), w.Solution3D, m.Parameters, m.Template(image));
  w.Form1.Check1(image).Value = 1;
  Set_Zoom(w, image, 1.0, 1.0);
}

void Mark_And_Log(Workspace& w, int image, FilmPosition film, const char* word, std::string& log) {
  log += Plain_Text(std::int32_t{image}) + " " + Film_Text(film) + " " + word + "\n";
  Picture& pane = w.Form1.Picture1(image);
  const PanePosition at = Pane_Of_Film(w, image, film);
  Plot_Block(pane, at.px, at.py, 1, kWhite);
}

void Draw_Ellipse(Workspace& w, int image, std::string& log) {
  Picture& pane = w.Form1.Picture1(image);
  const FilmPosition centre = Film_Of_Solution(w, image, w.Matching.Parameters.EZA);
  pane.DrawWidth = 1;
  for (const FilmPosition film : Ellipse_Outline(w.Matching.Template(image), centre)) {
    const PanePosition at = Pane_Of_Film(w, image, film);
    Plot_Point(pane, at.px, at.py, kWhite);
  }
  Mark_And_Log(w, image, Film_Of_Solution(w, image, 0), "TreeTop", log);
  Mark_And_Log(w, image, centre, "EllipseCenter", log);
}

std::string Template_Name(int image) {
  return "Image template n:o " + Plain_Text(std::int32_t{image});
}

// std::nullopt for an image that does not show the whole ellipse or cannot be read: it is left out
// of the search, and the other images continue. An ellipse without width is an error in the
// text boxes, not in the image.
std::optional<CutTemplate> Cut_Or_Leave_Out(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  try {
    CutTemplate cut = Cut_Template(record, Raw_Pixels_Of(w, record), w.Matching.Template(image));
    Require_Sound_Reads();
    return cut;
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    if (error.Kind() == Failure::DivisionByZero) throw;
    w.screen->Message_Box(Template_Name(image) + " is left out. " + error.what());
    w.Form1.Check1(image).Value = 0;
    Delete_Size_Templates(w.Drives, image);
    return std::nullopt;
  }
}

void Cut_And_Write(Workspace& w, int image) {
  Delete_Template(w.Drives, image);
  const std::optional<CutTemplate> cut = Cut_Or_Leave_Out(w, image);
  if (!cut) return;
  const std::string name = Template_Name(image);
  if (!cut->cols_defined) w.screen->Message_Box(name + " cannot define col borders!");
  if (!cut->rows_defined) w.screen->Message_Box(name + " cannot define row borders!");
  Write_Template(w.Drives, image, cut->pattern);
}

void Resize_Template(Workspace& w, int image) {
  ImageTemplate pattern = Read_Template(w.Drives, image);
  const auto of_image = [image](const auto& make) {
    try {
      return make();
    } catch (const RunTimeError& error) {
      throw error.At("template of image " + Plain_Text(std::int32_t{image}));
    }
  };
  const SizeTable sizes = of_image([&] { return Make_Size_Table(pattern); });
  Smooth_Template(pattern);
  for (int size = 1; size <= kTemplateSizeCount; ++size) {
    Look_At_Work();
    const TemplateSize& target = sizes[static_cast<std::size_t>(size - 1)];
    Write_Size_Template(w.Drives, image, size,
                        of_image([&] { return Resample_Template(pattern, target); }));
  }
}

}  // namespace

void Read_plot_center_data(Workspace& w) {
  PlotCenterRecord& plot = w.Matching.PlotCenter;
  plot.PlotId = "T1";
  plot.MeshRotation = 0;
  plot.PlotX = w.Solution3D.X;
  plot.PlotY = w.Solution3D.Y;
  plot.PlotZ = w.Solution3D.Z;
  w.Matching.ImagePolygon.assign(kPolygonVertices, {});
}

void Capture_templates(Workspace& w) {
  if (!w.SolutionValid) {
    w.screen->Message_Box("Need a 3D solution!");
    return;
  }
  Center_to_xyz_click(w);
  Take_Parameters(w);
  With_Text_File(w.Drives.Locate(kLogFile), [&w](std::string& log) {
    for (int k = 0; k < w.ImageCount; ++k) {
      About(w, Name_Of_Image(w, k) + ", its ellipse", [&] { Lay_Ellipse(w, k, log); });
    }
    for (int k = 0; k < w.ImageCount; ++k) {
      Draw_Ellipse(w, k, log);
      Cut_And_Write(w, k);
    }
  });
  Show_Status(w, "Elliptic templates captured and superimposed on images");
}

void Resize_templates(Workspace& w) {
  for (const int image : Ticked_Images(w)) {
    About(w, Name_Of_Image(w, image), [&] { Resize_Template(w, image); });
  }
}

}  // namespace sylvomex
