// SPDX-License-Identifier: MIT
#include "interchange/printed_text.h"
#include "interchange/survey_map.h"

namespace sylvomex {
namespace {

// In dark as in light browsers; in narrow ones the map and the tables scroll.
constexpr const char* kStart =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
    "<meta name=\"viewport\" content=\"width=device-width\"><title>Site report</title>\n"
    "<style>:root{color-scheme:light dark}"
    "body{font-family:sans-serif;max-width:70em;margin:1em auto;padding:0 1em;"
    "overflow-wrap:anywhere}div{overflow-x:auto}"
    "table{border-collapse:collapse}td,th{padding:0.2em 0.7em;border-bottom:1px solid #888;"
    "overflow-wrap:normal}td{text-align:right;white-space:nowrap}"
    "td:first-child,th{text-align:left}</style></head>\n<body>\n"
    "<h1>Site report</h1>\n";
constexpr const char* kLegend =
    "<p>Blue: photographs and their footprints; green: height models, grey where they have no "
    "data; orange: lidar tiles, the stronger the denser, dashed red where one is missing; red "
    "circle: the first plot. Coordinates are the world's, in metres.</p>\n";

/// A row of cells that are text of this program.
std::string Row(std::initializer_list<std::string> cells) {
  std::string row = "<tr>";
  for (const std::string& cell : cells) row += "<td>" + Escaped_For_Page(cell) + "</td>";
  return row + "</tr>\n";
}

std::string Heading(const std::string& title, std::initializer_list<const char*> columns) {
  std::string text = "<h2>" + title + "</h2>\n<div><table><tr>";
  for (const char* const column : columns) text += std::string("<th>") + column + "</th>";
  return text + "</tr>\n";
}

std::string Image_Table(const std::vector<SurveyedImage>& images) {
  if (images.empty()) return "";
  std::string text =
      Heading("Photographs", {"name", "pixels", "f, mm", "ground pixel, m", "neighbours",
                              "overlap, %", "terrain: low, mean, high, m",
                              "sun: azimuth, elevation", "first plot: column, row, from nadir"});
  for (const SurveyedImage& image : images) {
    const bool seen = image.has_footprint;
    text +=
        Row({image.name, Printed("%d x %d", image.width, image.height), Printed("%.3f", image.f_mm),
             seen ? Printed("%.4f", image.ground_pixel) : "looks above the horizon",
             seen ? std::to_string(image.neighbours) : "",
             seen ? Printed("%.0f", 100 * image.overlap) : "",
             image.terrain ? Printed("%.2f, %.2f, %.2f", image.terrain->low, image.terrain->mean,
                                     image.terrain->high)
                           : "none",
             image.sun ? Printed("%.2f, %.2f", (*image.sun)[0], (*image.sun)[1]) : "not known",
             image.plot
                 ? Printed("%.1f, %.1f, %.1f", (*image.plot)[0], (*image.plot)[1], (*image.plot)[2])
                 : "not shown"});
  }
  return text + "</table></div>\n";
}

std::string Model_Table(const std::vector<SurveyedModel>& models) {
  if (models.empty()) return "";
  std::string text = Heading("Height models", {"model", "cell, m", "east", "north",
                                               "low, mean, high, m", "cells without data"});
  for (const SurveyedModel& model : models) {
    text += Row(
        {model.name, Printed("%.3f", model.cell), Printed("%.2f to %.2f", model.west, model.east),
         Printed("%.2f to %.2f", model.south, model.north),
         Printed("%.2f, %.2f, %.2f", model.heights.low, model.heights.mean, model.heights.high),
         Printed("%llu of %llu", static_cast<unsigned long long>(model.without_data),
                 static_cast<unsigned long long>(model.cells))});
  }
  return text + "</table></div>\n";
}

std::string Lidar_Table(const std::vector<SurveyedCampaign>& campaigns) {
  if (campaigns.empty()) return "";
  std::string text =
      Heading("Lidar", {"campaign", "pulses", "tiles", "missing tiles", "pulses a square metre",
                        "squares of 5 m compared", "lowest last echo less terrain: mean, RMS, m"});
  for (const SurveyedCampaign& campaign : campaigns) {
    text +=
        Row({std::to_string(static_cast<int>(campaign.campaign)), std::to_string(campaign.pulses),
             std::to_string(campaign.tiles.size()), std::to_string(campaign.missing_tiles),
             Printed("%.2f", campaign.pulses_a_square_metre), std::to_string(campaign.compared),
             campaign.compared == 0
                 ? "no terrain model"
                 : Printed("%.3f, %.3f", campaign.mean_difference, campaign.rms_difference)});
  }
  return text + "</table></div>\n";
}

std::string Import_Table(const std::vector<ImportEntry>& imports) {
  if (imports.empty()) return "";
  std::string text = Heading("Imports", {"what", "when (UTC)", "files"});
  for (const ImportEntry& entry : imports) {
    text += Row({entry.kind, entry.time, std::to_string(entry.files.size())});
  }
  return text + "</table></div>\n";
}

}  // namespace

std::string Survey_Html(const SiteSurvey& survey) {
  const Site& site = survey.site;
  std::string text = kStart + std::string("<p>") + Escaped_For_Page(site.folder.string()) +
                     "</p>\n<p>Coordinate system " + Escaped_For_Page(site.crs);
  if (site.shift) {
    text += Printed("</p>\n<p>World = working + (%.0f, %.0f, 0) m", site.shift->X, site.shift->Y);
  }
  text += "</p>\n";
  for (const std::string& fault : survey.faults) {
    text += "<p><b>Cannot be read:</b> " + Escaped_For_Page(fault) + "</p>\n";
  }
  const std::string map = Survey_Map(survey);
  text += map.empty() ? "<p>Nothing was imported yet.</p>\n" : "<div>" + map + "</div>\n" + kLegend;
  return text + Image_Table(survey.images) + Model_Table(survey.models) +
         Lidar_Table(survey.campaigns) + Import_Table(site.imports) + "</body></html>\n";
}

}  // namespace sylvomex
