// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "interchange/site.h"
#include "interchange/site_survey.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

void Write_Report(const std::filesystem::path& file, const std::string& text) try {
  Replace_Whole_File({file.string(), file},
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
} catch (const RunTimeError& error) {
  throw FailedOnTheWay(error.what());
}

nlohmann::ordered_json Json_Of(const SurveyedImage& image) {
  nlohmann::ordered_json object{{"name", image.name},
                                {"image_id", image.image_id},
                                {"centre", {image.centre.X, image.centre.Y, image.centre.Z}}};
  object["footprint"] = nlohmann::ordered_json::array();
  for (const Point3D& corner : image.corners) {
    if (image.has_footprint) object["footprint"].push_back({corner.X, corner.Y});
  }
  object["ground_pixel_m"] = image.ground_pixel;
  object["overlap"] = image.overlap;
  object["neighbours"] = image.neighbours;
  if (image.terrain) {
    object["terrain_m"] = {image.terrain->low, image.terrain->mean, image.terrain->high};
  }
  if (image.plot) object["plot_px"] = {(*image.plot)[0], (*image.plot)[1]};
  return object;
}

nlohmann::ordered_json Json_Of(const SurveyedCampaign& campaign) {
  return {{"campaign", static_cast<int>(campaign.campaign)},
          {"tiles", campaign.tiles.size()},
          {"pulses", campaign.pulses},
          {"pulses_per_m2", campaign.pulses_a_square_metre},
          {"missing_tiles", campaign.missing_tiles},
          {"compared_squares", campaign.compared},
          {"mean_minus_terrain_m", campaign.mean_difference},
          {"rms_to_terrain_m", campaign.rms_difference}};
}

nlohmann::ordered_json Json_Of(const SurveyedModel& model) {
  return {{"model", model.name},
          {"cell_m", model.cell},
          {"extent", {model.west, model.south, model.east, model.north}},
          {"heights_m", {model.heights.low, model.heights.mean, model.heights.high}},
          {"cells", model.cells},
          {"without_data", model.without_data}};
}

template <class Items>
nlohmann::ordered_json Array_Of(const Items& items) {
  auto array = nlohmann::ordered_json::array();
  for (const auto& item : items) array.push_back(Json_Of(item));
  return array;
}

}  // namespace

int Run_Report(const ReportArguments& arguments, SiteOutput& output) {
  const Site site = Open_Site(arguments.site);
  const SiteSurvey survey = Survey_Site(site);
  const std::filesystem::path text = site.folder / "report.txt";
  const std::filesystem::path page = site.folder / "report.html";
  Write_Report(text, Survey_Text(survey));
  Write_Report(page, Survey_Html(survey));
  output.Say(Survey_Text(survey));
  output.Say("wrote " + text.string() + " and " + page.string());
  output.object["crs"] = site.crs;
  if (site.shift) output.object["shift"] = {site.shift->X, site.shift->Y, 0};
  output.object["text"] = text.string();
  output.object["html"] = page.string();
  output.object["images"] = Array_Of(survey.images);
  output.object["models"] = Array_Of(survey.models);
  output.object["lidar"] = Array_Of(survey.campaigns);
  output.object["unreadable"] = survey.faults;
  return kDone;
}

}  // namespace sylvomex
