// SPDX-License-Identifier: MIT
#include <cstdio>

#include "interchange/image_import.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

nlohmann::ordered_json Json_Of(const ImportedImage& image) {
  nlohmann::ordered_json object{{"name", image.name},
                                {"header", image.header},
                                {"raw", image.raw},
                                {"image_id", image.image_id},
                                {"colour", image.is_colour},
                                {"first_col", image.window.first_col},
                                {"first_row", image.window.first_row},
                                {"width", image.window.width},
                                {"height", image.window.height},
                                {"lens_shift_px", image.largest_shift},
                                {"resampling_residual_px", 0.0}};
  if (image.stretch) object["stretch"] = {image.stretch->low, image.stretch->high};
  if (image.sun) {
    object["sun_azimuth_deg"] = (*image.sun)[0];
    object["sun_elevation_deg"] = (*image.sun)[1];
  }
  return object;
}

std::string Line_Of(const ImportedImage& image) {
  std::string line = image.header + "  " + std::to_string(image.window.width) + " x " +
                     std::to_string(image.window.height) +
                     (image.is_colour ? ", colour" : ", grey");
  char text[160];
  if (image.stretch) {
    std::snprintf(text, sizeof text, ", %.2f to %.2f become 0 to 255", image.stretch->low,
                  image.stretch->high);
    line += text;
  }
  if (image.largest_shift > 0) {
    std::snprintf(text, sizeof text,
                  ", lens removed (up to %.2f px; computed at every pixel, no residual of a grid)",
                  image.largest_shift);
    line += text;
  }
  if (image.sun) {
    std::snprintf(text, sizeof text, ", sun at %.2f, %.2f above the horizon", (*image.sun)[0],
                  (*image.sun)[1]);
    line += text;
  }
  return line;
}

}  // namespace

int Run_Import_Images(const ImagesArguments& arguments, SiteOutput& output) {
  ImageImportSettings settings{arguments.site,
                               arguments.table,
                               arguments.files,
                               arguments.cameras,
                               arguments.format,
                               {2, 98},
                               {},
                               output.Progress()};
  if (arguments.stretch) settings.stretch = *arguments.stretch;
  if (arguments.around) {
    const auto [X, Y, Z, radius] = *arguments.around;
    settings.around = GroundCircle{{X, Y, Z}, radius};
  }
  const ImageImportResult result = Import_Images(settings);
  output.object["images"] = nlohmann::ordered_json::array();
  for (const ImportedImage& image : result.images) {
    output.Say(Line_Of(image));
    output.object["images"].push_back(Json_Of(image));
  }
  for (const std::string& name : result.passed_over) output.Say(name + " does not show the circle");
  output.Say("convention: " + result.convention);
  for (const std::string& column : result.columns_passed_over) {
    output.Warn(arguments.table.string() + ": " + column +
                " is passed over; check orientation tells whether the convention fits");
  }
  output.object["passed_over"] = result.passed_over;
  output.object["format"] = result.format;
  output.object["convention"] = result.convention;
  output.object["shift"] = {result.shift.X, result.shift.Y, 0};
  return kDone;
}

}  // namespace sylvomex
