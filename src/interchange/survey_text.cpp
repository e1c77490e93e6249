// SPDX-License-Identifier: MIT
#include "interchange/printed_text.h"
#include "interchange/site_survey.h"

namespace sylvomex {
namespace {

std::string Image_Lines(const SurveyedImage& image) {
  std::string text = Printed("  %s  id %d, %d x %d pixels (%.0f x %.0f here), f %.3f mm\n",
                             image.name.c_str(), image.image_id, image.width, image.height,
                             image.cut_width, image.cut_height, image.f_mm);
  text += Printed("    centre %.2f, %.2f, %.2f\n", image.centre.X, image.centre.Y, image.centre.Z);
  if (!image.has_footprint) return text + "    no footprint: a corner looks above the horizon\n";
  text += Printed("    ground pixel %.4f m; %d neighbours, overlap up to %.0f %%\n",
                  image.ground_pixel, image.neighbours, 100 * image.overlap);
  text += image.terrain ? Printed("    terrain %.2f to %.2f m, mean %.2f m\n", image.terrain->low,
                                  image.terrain->high, image.terrain->mean)
                        : "    no terrain model under the image\n";
  text += image.sun ? Printed("    sun at %.2f degrees, %.2f above the horizon\n", (*image.sun)[0],
                              (*image.sun)[1])
                    : "    direction of the sun not known\n";
  if (image.plot) {
    text += Printed("    first plot at column %.1f, row %.1f, %.1f degrees from nadir\n",
                    (*image.plot)[0], (*image.plot)[1], (*image.plot)[2]);
  }
  return text;
}

std::string Campaign_Lines(const SurveyedCampaign& campaign) {
  std::string text =
      Printed("  %d: %lld pulses in %zu tiles, %.2f a square metre; %d tiles missing within\n",
              static_cast<int>(campaign.campaign), static_cast<long long>(campaign.pulses),
              campaign.tiles.size(), campaign.pulses_a_square_metre, campaign.missing_tiles);
  if (campaign.compared == 0) return text + "    not compared with a terrain model\n";
  return text + Printed(
                    "    lowest last echoes of %zu squares of 5 m in %d tiles less the terrain: "
                    "mean %.3f m, RMS %.3f m\n",
                    campaign.compared, campaign.compared_tiles, campaign.mean_difference,
                    campaign.rms_difference);
}

std::string Model_Lines(const SurveyedModel& model) {
  return Printed(
      "  %s: cells of %.3f m, %.2f to %.2f east, %.2f to %.2f north, heights %.2f to "
      "%.2f m, mean %.2f m, %llu of %llu cells without data\n",
      model.name.c_str(), model.cell, model.west, model.east, model.south, model.north,
      model.heights.low, model.heights.high, model.heights.mean,
      static_cast<unsigned long long>(model.without_data),
      static_cast<unsigned long long>(model.cells));
}

}  // namespace

std::string Survey_Text(const SiteSurvey& survey) {
  const Site& site = survey.site;
  std::string text = "Site " + site.folder.string() + "\nCoordinate system " + site.crs + "\n";
  text += site.shift
              ? Printed("World = working + (%.0f, %.0f, 0) m\n", site.shift->X, site.shift->Y)
              : "No shift yet: it comes with the first import\n";
  text += Printed("\nImports: %zu\n", site.imports.size());
  for (const ImportEntry& entry : site.imports) {
    text += "  " + entry.time + "  " + entry.kind + Printed(", %zu files\n", entry.files.size());
  }
  text += Printed("\nPhotographs: %zu\n", survey.images.size());
  for (const SurveyedImage& image : survey.images) text += Image_Lines(image);
  text += Printed("\nHeight models: %zu\n", survey.models.size());
  for (const SurveyedModel& model : survey.models) text += Model_Lines(model);
  text += Printed("\nLidar campaigns: %zu\n", survey.campaigns.size());
  for (const SurveyedCampaign& campaign : survey.campaigns) text += Campaign_Lines(campaign);
  if (survey.plot) {
    text += Printed("\nMiddle of the first plot %.2f, %.2f, %.2f\n", survey.plot->X, survey.plot->Y,
                    survey.plot->Z);
  }
  for (const std::string& fault : survey.faults) text += "\nCannot be read: " + fault + "\n";
  return text;
}

}  // namespace sylvomex
