// SPDX-License-Identifier: MIT
#include "commands/stereo/anaglyph_pair.h"

#include <new>
#include <optional>
#include <string>

#include "closedlib/normalized_image.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/sound_reads.h"
#include "services/hourglass.h"
#include "services/kept_file.h"
#include "state/cause.h"
#include "state/workspace.h"
#include "stereo/normal_case.h"
#include "stereo/pair_file.h"

namespace sylvomex {
namespace {

constexpr const char* kFailed = "An error occurred, resuming";
constexpr const char* kTitle = "Creating normalized image pair";

/// The pixel size in metres; nothing for an empty answer, a dismissal and, after a message, for
/// one that is no number.
std::optional<double> Ask_Pixel_Width(Workspace& w) {
  const std::string prompt = "Give pixel size in um, eg. 42  Original is apprx: " +
                             Format(Film_Pixel_Micrometres(w.ImageBlock(1)), "#.0");
  const std::string answer = w.screen->Input_Box(prompt, kTitle).value_or("");
  if (answer.empty()) return std::nullopt;
  try {
    return Parse_Double(answer) / 1e6;
  } catch (const RunTimeError& error) {
    Tell_Cause(w, Cause_Text(error));
    w.screen->Message_Box("Give a numeric value for pixel size!", Buttons::Ok,
                          "Creating normalized images for stereo");
    return std::nullopt;
  }
}

StereoPair Make_Pair(const ImageRecord& left, const ImageRecord& right) {
  const RotationMatrix normal = Normal_Rotation(Angles_Of_Base(left, right));
  StereoPair pair;
  pair.left = Make_Stereo_Image(left, normal);
  pair.right = Make_Stereo_Image(right, normal);
  pair.ColorMode = left.ColorFlag;
  return pair;
}

bool Is_Size_Agreed(Workspace& w, const StereoPair& pair) {
  const std::string text =
      "Creating Images (2) with width :" + Plain_Text(std::int32_t{pair.NormalWidth}) +
      " Image height: " + Plain_Text(std::int32_t{pair.NormalHeight}) + " OK ?";
  return w.screen->Message_Box(text, Buttons::OkCancel) == Answer::Ok;
}

/// Names the rasters; the name of the pair file, nothing when a question was dismissed.
std::optional<std::string> Ask_Names(Workspace& w, StereoPair& pair) {
  const auto path = w.screen->Input_Box("Give output path:", "Normalizing images", "c:\\data\\");
  if (!path) return std::nullopt;
  pair.left.raster = *path + Plain_Text(w.ImageBlock(0).ImageId) + "test_left.raw";
  pair.right.raster = *path + Plain_Text(w.ImageBlock(1).ImageId) + "test_right.raw";
  return w.screen->Input_Box("Alter / OK the filename for the stereodata (*.txt):", kTitle,
                             *path + "PAIR.TXT");
}

void Resample(Workspace& w, int image, const StereoPair& pair, const StereoImage& side) {
  const ImageRecord& record = w.ImageBlock(image);
  const RotationMatrix& n = side.normal;
  NormalizedImage job;
  job.c = pair.left.c;  // also for the right image
  job.width = pair.NormalWidth;
  job.height = pair.NormalHeight;
  job.full_width = record.FullWidth;
  job.full_height = record.FullHeight;
  job.Xmin = pair.Xmin;
  job.Ymax = pair.Ymax;
  job.PixelWidth = pair.PixelWidth;
  job.colour = pair.ColorMode == 1;
  job.affine = {side.A1, side.A2, side.A0, side.B1, side.B2, side.B0};
  job.matrix = {n.m11, n.m12, n.m13, n.m21, n.m22, n.m23, n.m31, n.m32, n.m33};
  MYFUNC_CREATENORMALIZEDIMAGE(job, w.Drives.Locate(record.RawFileName.Trimmed()),
                               w.Drives.Locate(side.raster));
}

void Resample_Both(Workspace& w, const StereoPair& pair) {
  const HourglassGuard hourglass(w);
  WorkMeter meter(2);
  Resample(w, 0, pair, pair.left);
  meter.Step();
  Resample(w, 1, pair, pair.right);
}

void Create_Pair(Workspace& w) {
  const ImageRecord& left = w.ImageBlock(0);
  const ImageRecord& right = w.ImageBlock(1);
  StereoPair pair = Make_Pair(left, right);
  w.RotationTable(0) = pair.left.rotation;
  w.RotationTable(1) = pair.right.rotation;
  const NormalExtent extent = Extent_Of_Pair(left, right, pair);
  const auto pixel_width = Ask_Pixel_Width(w);
  if (!pixel_width) return;
  pair.PixelWidth = *pixel_width;
  About(w, "the size of the normalised images in pixels", [&] { Set_Raster_Size(pair, extent); });
  if (!Is_Size_Agreed(w, pair)) return;
  const auto pair_file = Ask_Names(w, pair);
  if (!pair_file) return;
  const FilePath file = w.Drives.Locate(*pair_file);
  Or_Former_File(file, [&] {
    Write_Whole_File(file, Pair_File_Text(pair));
    Resample_Both(w, pair);
  });
  w.screen->Message_Box("Normalized images computed!");
}

}  // namespace

void Create_anaglyph_pair(Workspace& w) {
  if (w.ImageCount < 2) {
    w.screen->Message_Box("At least 2 images are needed (0 and 1)!");
    return;
  }
  if (w.ImageCount > 2) {
    w.screen->Message_Box("Creating pair assuming image 0 (left) image 1 is right");
  }
  try {
    Create_Pair(w);
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    Show_With_Cause(w, kFailed, error);
  } catch (const std::bad_alloc& error) {
    Show_With_Cause(w, kFailed, error);
  }
}

}  // namespace sylvomex
