// SPDX-License-Identifier: MIT
#include "commands/imageblock/image_set.h"

#include "commands/imageblock/image_addition.h"
#include "commands/panes/centring.h"
#include "imageblock/image_header.h"
#include "imageblock/raw_rows.h"
#include "panes/pane_layout.h"
#include "panes/pane_rendering.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "services/chosen_file.h"
#include "services/hourglass.h"
#include "services/status_line.h"
#include "state/camera_access.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

constexpr int kMostImages = 9;
constexpr double kLargestSide = 32768;  // 2^15, itself allowed
constexpr Point3D kPanCenterOffset{5.0, 2.0, 200.0};

// header: the file and the place in it of the parameter.
void Warn(Workspace& w, int image, const std::string& header, const char* parameter,
          const std::string& value, const char* ending) {
  Tell_Cause(w, header);
  w.screen->Message_Box("Image (0-(N-1)): " + Plain_Text(std::int32_t{image}) +
                        "Parameter: " + parameter + value + ending);
}

// Only warns: the image stays in the block in any case. True when there was nothing to warn about.
bool Validate_Header(Workspace& w, int image, const std::string& header) {
  const ImageRecord& record = w.ImageBlock(image);
  const auto out_of_range = [](double side) { return !(side >= 0 && side <= kLargestSide); };
  const bool bad_width = out_of_range(record.SubWidth);
  const bool bad_height = out_of_range(record.SubHeight);
  const bool bad_colour = record.ColorFlag > 1;
  if (bad_width) {
    Warn(w, image, header + ", item 2", "Sub-image width:", Plain_Text(record.SubWidth),
         " in set file?");
  }
  if (bad_height) {
    Warn(w, image, header + ", item 3", "Sub-image height:", Plain_Text(record.SubHeight),
         " in set file?");
  }
  if (bad_colour) {
    Warn(w, image, header + ", item 5", "image color:", Plain_Text(std::int32_t{record.ColorFlag}),
         " in set file should be 1 (color) or 0 (grayscale)?");
  }
  return !(bad_width || bad_height || bad_colour);
}

// The raw file of a valid header must exist in full length. After a warning it is not checked,
// since points can be projected into the image without a picture.
void Check_Raw_File(Workspace& w, const ImageRecord& record) {
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  Check_Raw_Length({file.Bytes(), record.SubWidth, record.SubHeight, &file.File()},
                   record.ColorFlag == 1 ? RawLayout::Colour : RawLayout::Grey);
}

void Read_Header(Workspace& w, int image, ListReader& header) {
  w.ImageBlock(image) = Read_Image_Header(header);
  w.ImageKinds(image) = 1;
  Build_Rotation_Matrix(w, image);
}

void Show_Count_Read(Workspace& w, int count) {
  Show_Status(w, Plain_Text(std::int32_t{count}) + "/" + Plain_Text(std::int32_t{w.ImageCount}) +
                     " images read");
}

// Conversion to text and back keeps 15 significant digits.
double Through_Text(double value) { return Parse_Double(Plain_Text(value)); }

void Set_Default_Pan_Center(Workspace& w) {
  const ImageRecord& first = w.ImageBlock(0);
  w.DefaultPanCenter = {Through_Text(first.X0 + kPanCenterOffset.X),
                        Through_Text(first.Y0 + kPanCenterOffset.Y),
                        Through_Text(kPanCenterOffset.Z)};
  w.PanCenter = w.DefaultPanCenter;
}

void Show_At_Start_Position(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  const PaneView& view = w.PaneViews(image);
  const ViewWindow window =
      Fit_View_Window(w, image, record.StartCol, record.StartRow,
                      View_Extent(w.PaneWidth, view.ZoomX), View_Extent(w.PaneHeight, view.ZoomY));
  Render_Scratch_Bitmap(w, image, window);
  Load_Scratch_Bitmap(w, image);
}

void Give_Start_View(Workspace& w, int image) {
  PaneView& view = w.PaneViews(image);
  view.ZoomX = 1.0;
  view.ZoomY = 1.0;
  view.ViewWidth = w.PaneWidth;
  view.ViewHeight = w.PaneHeight;
}

void Finish_Without_Solution(Workspace& w, const FollowedImage& image) {
  Show_Count_Read(w, image.Index() + 1);
  w.screen->Service_Events();
  const int k = image.Index();
  Build_Rotation_Matrix(w, k);
  w.Form1.Picture1(k).Visible = true;
  w.Form1.Picture1(k).Enabled = true;
  Set_Default_Pan_Center(w);
  w.ImageAddDone = true;
}

void Read_Next_Image(Workspace& w, ListReader& header, const std::string& name,
                     const FollowedImage& image, HourglassGuard& hourglass) {
  ++w.ImageCount;
  w.screen->Service_Events();
  Compute_Pane_Size(w);
  Require_Room_For_Panes(w.PaneWidth, w.ImageCount);
  const int k = image.Index();
  Read_Header(w, k, header);
  if (Validate_Header(w, k, name)) {
    Named_In(w, name, [&] { Check_Raw_File(w, w.ImageBlock(k)); });
  }
  hourglass.Show();
  Show_Count_Read(w, 0);
  w.screen->Service_Events();
}

}  // namespace

bool Take_In_Image(Workspace& w, const FilePath& header_file, const FollowedImage& image) {
  w.ImageAddDone = false;
  ListReader header(header_file);
  if (w.ImageCount > kMostImages) {
    Tell_Cause(w, header_file.name + " is not added, the block has " +
                      Plain_Text(std::int32_t{w.ImageCount}) + " images");
    w.screen->Message_Box(
        "At the moment cannot allow more than 9 images (three rows of Picture-boxes to hold the "
        "images!)");
    return false;
  }
  ImageAddition addition(w, image);
  HourglassGuard hourglass(w);
  try {
    Read_Next_Image(w, header, header_file.name, image, hourglass);
  } catch (const RunTimeError&) {
    addition.Undo();
    throw;
  }
  // A tenth image passes the test above but throws here, because there are nine panes.
  Lay_Out_Panes(w);
  Give_Start_View(w, image.Index());
  return true;
}

void Add_Image_By_Name(Workspace& w, const FilePath& header_file) {
  const FollowedImage image(w, w.ImageCount);
  ImageAddition addition(w, image);
  if (!Take_In_Image(w, header_file, image)) return;
  if (w.SolutionValid) {
    addition.Undo_When_Cancelled([&w] { Center_to_xyz_click(w); });
    return;
  }
  try {
    Show_At_Start_Position(w, image.Index());
  } catch (const RunTimeError& error) {
    throw error.At("image " + Plain_Text(std::int32_t{image.Index()}) + " stays without a picture",
                   error.Native_Path());
  }
  Finish_Without_Solution(w, image);
}

void Add_images_to_set(Workspace& w) {
  const auto chosen = Ask_File(w, {"Header file for an image", "Set files (*.hdr)|*.hdr", 1, ""});
  if (chosen) Add_Image_By_Name(w, *chosen);
}

void Open_a_set(Workspace& w) { w.screen->Message_Box("This functionality is disabled!"); }

void Toggle_Gamma(Workspace& w, int n) {
  const bool was_checked = w.Menu.Gamma(n);
  for (bool& checked : w.Menu.Gamma) checked = false;
  w.Menu.Gamma(n) = !was_checked;
}

}  // namespace sylvomex
