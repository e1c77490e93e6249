// SPDX-License-Identifier: MIT
#include <algorithm>

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

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

/// The map: a rectangle of the world drawn 900 pixels wide at most, north up.
class Map {
 public:
  explicit Map(const SiteSurvey& survey) {
    for (const SurveyedImage& image : survey.images) {
      Include(image.centre.X, image.centre.Y);
      for (const Point3D& corner : image.corners) {
        if (image.has_footprint) Include(corner.X, corner.Y);
      }
    }
    for (const SurveyedCampaign& campaign : survey.campaigns) {
      for (const SurveyedTile& tile : campaign.tiles) {
        Include(tile.west, tile.south);
        Include(tile.west + kTileSide, tile.south + kTileSide);
      }
    }
    for (const SurveyedModel& model : survey.models) {
      Include(model.west, model.south);
      Include(model.east, model.north);
    }
  }

  [[nodiscard]] bool Is_Empty() const { return east_ < west_; }
  [[nodiscard]] double Scale() const {
    return kSide / std::max({east_ - west_, north_ - south_, 1.0});
  }
  [[nodiscard]] double X(double east) const { return (east - west_) * Scale() + kMargin; }
  [[nodiscard]] double Y(double north) const { return (north_ - north) * Scale() + kMargin; }
  [[nodiscard]] double Width() const { return (east_ - west_) * Scale() + 2 * kMargin; }
  [[nodiscard]] double Height() const { return (north_ - south_) * Scale() + 2 * kMargin; }

 private:
  static constexpr double kSide = 860;
  static constexpr double kMargin = 20;

  void Include(double X, double Y) {
    west_ = std::min(west_, X);
    east_ = std::max(east_, X);
    south_ = std::min(south_, Y);
    north_ = std::max(north_, Y);
  }

  double west_ = 1e30, east_ = -1e30, south_ = 1e30, north_ = -1e30;
};

std::string Rectangle(const Map& map, double west, double south, double east, double north,
                      const char* style) {
  return Printed("<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" %s/>\n", map.X(west),
                 map.Y(north), (east - west) * map.Scale(), (north - south) * map.Scale(), style);
}

std::string Image_On_Map(const Map& map, const SurveyedImage& image) {
  std::string text;
  if (image.has_footprint) {
    text += "<polygon points=\"";
    for (const Point3D& corner : image.corners) {
      text += Printed("%.1f,%.1f ", map.X(corner.X), map.Y(corner.Y));
    }
    text += "\" fill=\"#2060c0\" fill-opacity=\"0.10\" stroke=\"#2060c0\"/>\n";
  }
  const double x = map.X(image.centre.X);
  const double y = map.Y(image.centre.Y);
  text += Printed("<circle cx=\"%.1f\" cy=\"%.1f\" r=\"3\" fill=\"#2060c0\"/>", x, y);
  return text + Printed("<text x=\"%.1f\" y=\"%.1f\" font-size=\"11\">", x + 5, y - 4) +
         Escaped(image.name) + "</text>\n";
}

std::string Svg_Of(const SiteSurvey& survey) {
  const Map map(survey);
  if (map.Is_Empty()) return "<p>Nothing was imported yet.</p>\n";
  std::string text = Printed(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" "
      "height=\"%.0f\" font-family=\"sans-serif\">\n",
      map.Width(), map.Height());
  for (const SurveyedModel& model : survey.models) {
    text += Rectangle(map, model.west, model.south, model.east, model.north,
                      "fill=\"#c8e0b0\" fill-opacity=\"0.5\" stroke=\"#608040\"");
  }
  for (const SurveyedCampaign& campaign : survey.campaigns) {
    for (const SurveyedTile& tile : campaign.tiles) {
      text += Rectangle(map, tile.west, tile.south, tile.west + kTileSide, tile.south + kTileSide,
                        "fill=\"#e09030\" fill-opacity=\"0.25\" stroke=\"#e09030\" "
                        "stroke-width=\"0.5\"");
    }
  }
  for (const SurveyedImage& image : survey.images) text += Image_On_Map(map, image);
  if (survey.plot) {
    text += Printed(
        "<circle cx=\"%.1f\" cy=\"%.1f\" r=\"5\" fill=\"none\" stroke=\"#c02020\" "
        "stroke-width=\"2\"/>\n",
        map.X(survey.plot->X), map.Y(survey.plot->Y));
  }
  return text +
         "</svg>\n<p>Blue: photographs and their footprints; green: height models; orange: "
         "lidar tiles; red: the first plot.</p>\n";
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

std::string Survey_Html(const SiteSurvey& survey) {
  return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>Site report"
         "</title></head>\n<body style=\"font-family:sans-serif;max-width:60em\">\n"
         "<h1>Site report</h1>\n" +
         Svg_Of(survey) + "<pre>" + Escaped(Survey_Text(survey)) + "</pre>\n</body></html>\n";
}

}  // namespace sylvomex
