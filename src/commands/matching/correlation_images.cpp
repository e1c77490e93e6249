// SPDX-License-Identifier: MIT
#include "commands/matching/correlation_images.h"

#include <list>
#include <memory>
#include <optional>
#include <string>

#include "commands/matching/matching_inputs.h"
#include "imageblock/bitmap_file.h"
#include "matching/image_template.h"
#include "matching/patch_geometry.h"
#include "matching/tree_top_steps.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/progress.h"
#include "services/ticked_images.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

// A ticked image. Templates and files are named by its index, so an image that a removal has moved
// is skipped like a removed one.
struct TickedImage {
  TickedImage(Workspace& w, int image) : place(image), followed(w, image) {}
  [[nodiscard]] bool Is_In_Place() const {
    return followed.Is_There() && followed.Index() == place;
  }

  const int place;
  const FollowedImage followed;
};

std::string Index_Text(int image) { return Plain_Text(std::int32_t{image}); }

// The patch side for an image; when it has none of its own, that of the previous image.
int Choose_Side(Workspace& w, int image, std::optional<int> side_before) {
  const ImageRecord& record = w.ImageBlock(image);
  const auto report = [&](std::string_view text) {
    Show_With_Cause(w, text, Name_Of_Image(w, image) + ": the determinant of its affine");
  };
  const double ground_side = Ground_Pixel_Side(record, Pixel_Side_Micrometres(record, report),
                                               w.Matching.PlotCenter.PlotZ);
  const auto side = Patch_Side(w.Matching.PatchSize, ground_side);
  if (side) return *side;
  Show_With_Cause(
      w, "There's a problem defining the size of the corr-image-patch: " + Index_Text(image),
      Name_Of_Image(w, image) + ": a patch of " + Plain_Text(w.Matching.PatchSize) +
          " m with pixels of " + Plain_Text(ground_side) + " m has more than 10001 pixels");
  if (side_before) return *side_before;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "the patch of image " + Index_Text(image) +
                         " is larger than 10001 pixels and no image before it has a size");
}

RawWindow Choose_Window(Workspace& w, int image, int side) {
  const PlotCenterRecord& plot = w.Matching.PlotCenter;
  const PatchPlace place = Place_Patch(w.ImageBlock(image), Camera_Of(w, image),
                                       {plot.PlotX, plot.PlotY, plot.PlotZ}, side);
  if (!place.fits) {
    Show_With_Cause(
        w, "Pan window is too large",
        Name_Of_Image(w, image) + ": the patch has " + Index_Text(side) + " pixels a side");
  }
  CorrelationVolume::Require_Room(place.window.Width(), place.window.Height());
  return place.window;
}

std::vector<double> Correlate(Workspace& w, int image, const RawWindow& window,
                              const std::vector<std::uint8_t>& patch) {
  const ImageTemplate pattern = Read_Template(w.Drives, image);
  Progress progress(w);
  std::vector<double> result = Correlate_Patch(pattern, window, patch);
  progress.Report(Format(progress.Seconds(), "#.00") +
                  " Seconds cross-corr for image: " + Index_Text(image));
  return result;
}

void Write_And_Show(Workspace& w, int image, const RawWindow& window,
                    const std::vector<double>& result) {
  w.Matching.CorrelationVolume.Store(image, window.Width(), window.Height(), result);
  const std::vector<std::uint8_t> bytes = Correlation_Bytes(result);
  Write_Whole_File(Correlation_Bytes_File(w.Drives, image), bytes);
  const FilePath picture = Correlation_Picture_File(w.Drives, image);
  Write_Grey_Bitmap(picture, window.Width(), window.Height(), bytes);
  Load_Picture(w.Form1.Picture1(image), std::make_shared<const PaneBitmap>(Load_Bitmap(picture)));
}

void Correlate_Image(Workspace& w, const TickedImage& ticked, int side) {
  const int image = ticked.place;
  // A copy: the events serviced below may change the image set.
  const ImageRecord record = w.ImageBlock(image);
  const RawWindow window = Choose_Window(w, image, side);
  const std::vector<std::uint8_t> patch =
      Read_Raw_Window(record, Raw_Pixels_Of(w, record), window, ColourRule::Mean);
  Write_Patch(w.Drives, image, window.Width(), window.Height(), patch);
  const std::vector<double> result = Correlate(w, image, window, patch);
  if (!ticked.Is_In_Place()) return;
  Write_And_Show(w, image, window, result);
  w.CorrelationRecords(image) =
      Correlation_Record(record, window, "c:\\data\\ccor_ima" + Index_Text(image) + ".raw");
  w.CorrelationPaneViews(image) = {0, 0, 0, 0, 1.0, 1.0};
  w.ImageKinds(image) = 2;
}

}  // namespace

void Compute_Correlation_Images(Workspace& w) {
  w.Matching.PlotRadius = Number_In(w.Form1.Text4, "Text4");
  w.Matching.PatchSize = Patch_Size_Of(w.Matching.PlotRadius);
  if (!w.SolutionValid) {
    w.screen->Message_Box("Solution X;Y;Z does not exist!");
    return;
  }
  std::list<TickedImage> images;
  for (const int image : Ticked_Images(w)) images.emplace_back(w, image);
  std::optional<int> side;
  WorkMeter meter(static_cast<double>(images.size()));
  for (const TickedImage& image : images) {
    if (!image.Is_In_Place()) continue;
    About(w, Name_Of_Image(w, image.place) + ", its patch", [&] {
      side = Choose_Side(w, image.place, side);
      Correlate_Image(w, image, *side);
    });
    meter.Step();
  }
}

}  // namespace sylvomex
