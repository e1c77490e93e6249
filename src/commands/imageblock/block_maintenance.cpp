// SPDX-License-Identifier: MIT
#include "commands/imageblock/block_maintenance.h"

#include "commands/panes/centring.h"
#include "panes/pane_layout.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/status_line.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kAllImages = 100;
constexpr int kPanes = 9;

std::string Ask_Image(Workspace& w) {
  const std::string last = Plain_Text(std::int32_t{w.ImageCount} - 1);
  const std::string prompt =
      "Which image (one at a time or all) do you wish to remove from the set: 0-" + last +
      " ? (100 = all images)";
  return w.screen->Input_Box(prompt, "Removing an image from the set", "100").value_or("");
}

// All fields except the comment and the related rasters, which stay with their index.
void Copy_Record(const ImageRecord& from, ImageRecord& to) {
  ImageRecord moved = from;
  moved.ImageComment = to.ImageComment;
  moved.BandCount = to.BandCount;
  moved.BandFile = to.BandFile;
  moved.BandType = to.BandType;
  moved.BandWidth = to.BandWidth;
  moved.BandHeight = to.BandHeight;
  to = moved;
}

// ImageKinds are not moved: they stay with their index.
void Move_Down_To(Workspace& w, int first) {
  const int last = w.ImageCount - 1;
  w.PaneViews(last);  // throws for an image without a pane, before anything has moved
  for (int i = first; i < last; ++i) {
    Copy_Record(w.ImageBlock(i + 1), w.ImageBlock(i));
    w.PaneViews(i) = w.PaneViews(i + 1);
    Build_Rotation_Matrix(w, i);
  }
}

// Lays out the panes for the remaining images. Panes that become free lose their pictures, so that
// a later image never starts with an old picture.
void Lay_Out_Those_Left(Workspace& w) {
  w.CurrentImage = -1;
  Compute_Pane_Size(w);
  Lay_Out_Panes(w);
  for (int k = w.ImageCount; k < kPanes; ++k) Load_Picture(w.Form1.Picture1(k), nullptr);
}

void Remove_Image(Workspace& w, int image) {
  if (image < 0 || image >= w.ImageCount) {
    Show_With_Cause(w,
                    "You've entered an image number outside acceptable range, remember, numbering "
                    "starts from zero",
                    "image " + Plain_Text(std::int32_t{image}) + " of " +
                        Plain_Text(std::int32_t{w.ImageCount}));
    Show_Status(w, "Could not remove images with given input");
    return;
  }
  const bool is_last = image == w.ImageCount - 1;
  // Not to be cancelled: a pane not yet drawn would show an image that is another's now, or gone.
  const WatchedWork to_the_end(nullptr);
  Take_Out_Image(w, image);
  Lay_Out_Those_Left(w);
  Center_On_Solution_Or_Start(w);
  Show_Status(w, is_last ? "Removed the last image from the set succesfully"
                         : "Removed an image from the set succesfully");
}

}  // namespace

void Take_Out_Image(Workspace& w, int image) {
  if (image < w.ImageCount - 1) Move_Down_To(w, image);
  --w.ImageCount;
  for (FollowedImage* followed : w.FollowedImages) followed->After_Removal_Of(image);
}

void Remove_All_Images(Workspace& w) {
  while (w.ImageCount > 0) Take_Out_Image(w, w.ImageCount - 1);
  Lay_Out_Those_Left(w);
  w.SolutionValid = false;
  Show_Status(w, "Removed all images from the set succesfully");
}

void Remove_an_image(Workspace& w) {
  try {
    const std::string answer = Ask_Image(w);
    if (answer.empty()) return;
    const int image = Parse_Int16(answer);
    if (image == kAllImages) {
      Remove_All_Images(w);
    } else {
      Remove_Image(w, image);
    }
  } catch (const RunTimeError& error) {
    Tell_Cause(w, Cause_Text(error));
    Show_Status(w, "An error occurred in removing images");
  }
}

}  // namespace sylvomex
