// SPDX-License-Identifier: MIT
#include "commands/stereo/recentring.h"

#include <memory>
#include <string>
#include <utility>

#include "closedlib/anaglyph_picture.h"
#include "closedlib/normalized_image.h"
#include "imageblock/bitmap_file.h"
#include "platform/memory_room.h"
#include "platform/number_text.h"
#include "state/cause.h"
#include "stereo/stereo_view.h"

namespace sylvomex {
namespace {

constexpr const char* kPictureFile = "c:\\data\\pic_left.bmp";

void Require_Length(const MappedFile& raster, const StereoPair& pair) {
  const std::uint64_t wanted =
      Raster_Bytes(pair.NormalWidth, pair.NormalHeight, pair.ColorMode == 1);
  if (raster.Bytes().size() >= wanted) return;
  throw RunTimeError(Failure::InputPastEnd,
                     raster.File().name + ": the pair's rasters have " + std::to_string(wanted) +
                         " bytes, the file " + std::to_string(raster.Bytes().size()),
                     raster.File().native);
}

AnaglyphSide Side_Of(Workspace& w, const StereoPair& pair, const std::string& raster,
                     const StereoWindow& window) {
  const MappedFile& mapped = w.RawFiles.Open(w.Drives.Locate(raster));
  Require_Length(mapped, pair);
  return {mapped.Bytes(),      pair.NormalWidth, pair.NormalHeight,
          pair.ColorMode == 1, window.first_row, window.first_col};
}

std::shared_ptr<const PaneBitmap> Compose(Workspace& w, const StereoState& state) {
  const StereoPair& pair = state.Pair;
  const AnaglyphSide left = Side_Of(w, pair, pair.left.raster, state.WindowLeft);
  const AnaglyphSide right = Side_Of(w, pair, pair.right.raster, state.WindowRight);
  auto picture = std::make_shared<PaneBitmap>();
  picture->width = state.StereoWidth;
  picture->height = state.StereoHeight;
  const std::size_t bytes =
      3 * static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(picture->height);
  Require_Memory(bytes, "a stereo picture of " + std::to_string(picture->width) + " x " +
                            std::to_string(picture->height) + " pixels");
  picture->bgr.resize(bytes);
  MYFUNC_CREATEBMP(left, right, picture->width, picture->height, picture->bgr);
  return picture;
}

}  // namespace

void Recentre(Workspace& w, StereoState next) {
  const Point3D& mark = next.StereoSolution;
  About(w,
        "the mark at " + Plain_Text(mark.X) + ", " + Plain_Text(mark.Y) + ", " +
            Plain_Text(mark.Z) + " in the pair's rasters",
        [&] { Center_On_Mark(next); });
  auto picture = Compose(w, next);
  Replace_Bitmap(w.Drives.Locate(kPictureFile), *picture);
  w.Stereo = std::move(next);
  Load_Picture(w.Form5.Picture1, std::move(picture));
  Show_Mark(w);
}

void Recentre_At(Workspace& w, const Point3D& mark) {
  StereoState next = w.Stereo;
  next.StereoSolution = mark;
  Recentre(w, std::move(next));
}

void Show_Mark(Workspace& w) {
  const Point3D& mark = w.Stereo.StereoSolution;
  w.Form5.Label1.Caption = "X: " + Format(mark.X, "#.00") + "  Y: " + Format(mark.Y, "#.00") +
                           "  Z: " + Format(mark.Z, "#.00");
}

void Require_Open_Pair(const Workspace& w) {
  if (w.Stereo.PairOpen) return;
  throw RunTimeError(Failure::BadContent, "no stereo pair is open");
}

}  // namespace sylvomex
