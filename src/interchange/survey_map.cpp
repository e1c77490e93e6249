// SPDX-License-Identifier: MIT
#include "interchange/survey_map.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "interchange/printed_text.h"

namespace sylvomex {
namespace {

constexpr double kLongerSide = 800;    // of the longer side of what is drawn, pixels
constexpr double kMargin = 60;         // room for the coordinates
constexpr double kMostMissing = 2000;  // tiles
constexpr double kLeastBar = 90;       // pixels, of the scale bar
constexpr double kLeastWidth = 360;    // holds the longest scale bar
constexpr double kLetter = 6.5;        // pixels, an average letter of the labels with its gap
constexpr double kLine = 12;           // their height

/// 1, 2 or 5 times a power of ten, not below `least`.
double Round_Step(double least) {
  const double power = std::pow(10, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= least) return factor * power;
  }
  return 10 * power;
}

/// A rectangle of the world in the picture.
class MapFrame {
 public:
  explicit MapFrame(const SiteSurvey& survey) {
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
    return kLongerSide / std::max({east_ - west_, north_ - south_, 1.0});
  }
  [[nodiscard]] double X(double east) const { return (east - west_) * Scale() + kMargin; }
  [[nodiscard]] double Y(double north) const { return (north_ - north) * Scale() + kMargin; }
  [[nodiscard]] double Width() const {
    return std::max((east_ - west_) * Scale() + 2 * kMargin, kLeastWidth);
  }
  [[nodiscard]] double Height() const { return (north_ - south_) * Scale() + 2 * kMargin; }
  [[nodiscard]] double West() const { return west_; }
  [[nodiscard]] double East() const { return east_; }
  [[nodiscard]] double South() const { return south_; }
  [[nodiscard]] double North() const { return north_; }

 private:
  void Include(double X, double Y) {
    west_ = std::min(west_, X);
    east_ = std::max(east_, X);
    south_ = std::min(south_, Y);
    north_ = std::max(north_, Y);
  }

  double west_ = 1e30, east_ = -1e30, south_ = 1e30, north_ = -1e30;
};

/// The texts of the map, in pixels.
class Labels {
 public:
  /// `x` is the place of its anchor, "start", "middle" or "end". False, without the text, where it
  /// would run into another one.
  bool Add(double x, double y, const char* anchor, const std::string& words) {
    const double wide = Width_Of(words);
    const std::string_view side = anchor;
    const double left = side == "end" ? x - wide : side == "middle" ? x - wide / 2 : x;
    const Box box{left, y - kLine, left + wide, y};
    if (std::ranges::any_of(taken_, [&](const Box& other) { return other.Meets(box); }))
      return false;
    taken_.push_back(box);
    text_ += Printed("<text x=\"%.1f\" y=\"%.1f\" text-anchor=\"%s\">", x, y, anchor) +
             Escaped_For_Page(words) + "</text>\n";
    return true;
  }

  /// Letters, not bytes.
  [[nodiscard]] static double Width_Of(const std::string& words) {
    const auto letters = std::ranges::count_if(
        words, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
    return kLetter * static_cast<double>(letters);
  }

  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  struct Box {
    double left, top, right, bottom;

    [[nodiscard]] bool Meets(const Box& other) const {
      return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
  };

  std::vector<Box> taken_;
  std::string text_;
};

/// title: what a browser shows under the pointer.
std::string Rectangle(const MapFrame& map, const MapRectangle& place, const std::string& style,
                      const std::string& title) {
  return Printed("<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" ", map.X(place.west),
                 map.Y(place.north), (place.east - place.west) * map.Scale(),
                 (place.north - place.south) * map.Scale()) +
         style + "><title>" + Escaped_For_Page(title) + "</title></rect>\n";
}

std::string Model_On_Map(const MapFrame& map, const SurveyedModel& model) {
  std::string text =
      Rectangle(map, {model.west, model.south, model.east, model.north},
                "fill=\"#c8e0b0\" fill-opacity=\"0.5\" stroke=\"#608040\"", model.name);
  for (const MapRectangle& gap : model.gaps) {
    text += Rectangle(map, gap, "fill=\"#606060\" shape-rendering=\"crispEdges\"",
                      model.name + ": no data");
  }
  return text;
}

std::string Tiles_On_Map(const MapFrame& map, const SurveyedCampaign& campaign) {
  constexpr double kFaintest = 0.1, kStrongest = 0.6;
  const std::string name = std::to_string(static_cast<int>(campaign.campaign));
  std::int64_t most = 1;
  for (const SurveyedTile& tile : campaign.tiles) most = std::max(most, tile.records);
  std::string text;
  for (const SurveyedTile& tile : campaign.tiles) {
    const double share = static_cast<double>(tile.records) / static_cast<double>(most);
    text += Rectangle(
        map, {tile.west, tile.south, tile.west + kTileSide, tile.south + kTileSide},
        Printed("fill=\"#e09030\" fill-opacity=\"%.2f\" stroke=\"#e09030\" stroke-width=\"0.5\"",
                kFaintest + (kStrongest - kFaintest) * share),
        Printed("lidar of %s: %lld pulses, %.2f a square metre", name.c_str(),
                static_cast<long long>(tile.records),
                static_cast<double>(tile.records) / (kTileSide * kTileSide)));
  }
  return text;
}

/// The tiles that are missing within the rectangle of those that are there, unless it is mostly
/// empty: what lies between distant places is no gap.
std::string Missing_On_Map(const MapFrame& map, const SurveyedCampaign& campaign) {
  std::set<std::pair<long, long>> there;
  MapRectangle all{1e30, 1e30, -1e30, -1e30};
  for (const SurveyedTile& tile : campaign.tiles) {
    there.emplace(std::lround(tile.west), std::lround(tile.south));
    all = {std::min(all.west, tile.west), std::min(all.south, tile.south),
           std::max(all.east, tile.west), std::max(all.north, tile.south)};
  }
  const auto side = std::lround(kTileSide);
  const double whole =
      ((all.east - all.west) / kTileSide + 1) * ((all.north - all.south) / kTileSide + 1);
  if (whole - static_cast<double>(there.size()) > kMostMissing) return "";
  std::string text;
  for (long west = std::lround(all.west); west <= std::lround(all.east); west += side) {
    for (long south = std::lround(all.south); south <= std::lround(all.north); south += side) {
      if (there.contains({west, south})) continue;
      const auto w = static_cast<double>(west);
      const auto s = static_cast<double>(south);
      text += Rectangle(map, {w, s, w + kTileSide, s + kTileSide},
                        "fill=\"none\" stroke=\"#c02020\" stroke-dasharray=\"4 3\"", "no tile");
    }
  }
  return text;
}

/// The name of a photograph: to the right of its centre, where the map ends or another name stands
/// to the left or below; under the pointer alone where they are too many.
void Name_Image(const MapFrame& map, const SurveyedImage& image, Labels& labels) {
  constexpr double kGap = 5, kAbove = -4, kBelow = 14;
  const double x = map.X(image.centre.X);
  const double y = map.Y(image.centre.Y);
  const bool fits_right = x + kGap + Labels::Width_Of(image.name) <= map.Width();
  for (const double away : {kAbove, kBelow}) {
    if (fits_right && labels.Add(x + kGap, y + away, "start", image.name)) return;
    if (labels.Add(x - kGap, y + away, "end", image.name)) return;
  }
}

std::string Image_On_Map(const MapFrame& map, const SurveyedImage& image, Labels& labels) {
  std::string text;
  if (image.has_footprint) {
    text += "<polygon points=\"";
    for (const Point3D& corner : image.corners) {
      text += Printed("%.1f,%.1f ", map.X(corner.X), map.Y(corner.Y));
    }
    text += "\" fill=\"none\" stroke=\"#2060c0\"><title>" + Escaped_For_Page(image.name) +
            "</title></polygon>\n";
  }
  const double x = map.X(image.centre.X);
  const double y = map.Y(image.centre.Y);
  Name_Image(map, image, labels);
  return text + Printed("<circle cx=\"%.1f\" cy=\"%.1f\" r=\"3\" fill=\"#2060c0\"><title>", x, y) +
         Escaped_For_Page(image.name) + "</title></circle>\n";
}

/// Round world coordinates, with lines across the map.
std::string Grid_Of(const MapFrame& map, Labels& labels) {
  constexpr double kLeastStep = 110;  // pixels between two coordinates
  const double step = Round_Step(kLeastStep / map.Scale());
  std::string text = "<g stroke=\"#d0d0d0\" stroke-width=\"0.5\">\n";
  const auto first_east = std::llround(std::ceil(map.West() / step));
  for (auto i = first_east; static_cast<double>(i) * step <= map.East(); ++i) {
    const double x = map.X(static_cast<double>(i) * step);
    text += Printed("<line x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", x, kMargin, x,
                    map.Height() - kMargin);
    labels.Add(x, kMargin - 6, "middle", Printed("%.10g", static_cast<double>(i) * step));
  }
  const auto first_north = std::llround(std::ceil(map.South() / step));
  for (auto i = first_north; static_cast<double>(i) * step <= map.North(); ++i) {
    const double y = map.Y(static_cast<double>(i) * step);
    text += Printed("<line x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", kMargin, y,
                    map.X(map.East()), y);
    labels.Add(kMargin - 6, y + 4, "end", Printed("%.10g", static_cast<double>(i) * step));
  }
  return text + "</g>\n";
}

std::string Scale_Bar_Of(const MapFrame& map, Labels& labels) {
  const double length = Round_Step(kLeastBar / map.Scale());
  const double y = map.Height() - kMargin / 2;
  labels.Add(kMargin + length * map.Scale() + 6, y + 6, "start", Printed("%.10g m", length));
  return Printed("<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"5\" fill=\"#202020\"/>\n",
                 kMargin, y, length * map.Scale());
}

}  // namespace

std::string Escaped_For_Page(const std::string& text) {
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

std::string Survey_Map(const SiteSurvey& survey) {
  const MapFrame map(survey);
  if (map.Is_Empty()) return "";
  Labels labels;
  std::string text = Printed(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" "
      "viewBox=\"0 0 %.0f %.0f\" font-family=\"sans-serif\" font-size=\"11\">\n"
      "<rect width=\"100%%\" height=\"100%%\" fill=\"#ffffff\"/>\n",
      map.Width(), map.Height(), map.Width(), map.Height());
  text += Grid_Of(map, labels);
  for (const SurveyedModel& model : survey.models) text += Model_On_Map(map, model);
  for (const SurveyedCampaign& campaign : survey.campaigns) {
    text += Tiles_On_Map(map, campaign) + Missing_On_Map(map, campaign);
  }
  const std::string bar = Scale_Bar_Of(map, labels);
  for (const SurveyedImage& image : survey.images) text += Image_On_Map(map, image, labels);
  if (survey.plot) {
    text += Printed(
        "<circle cx=\"%.1f\" cy=\"%.1f\" r=\"5\" fill=\"none\" stroke=\"#c02020\" "
        "stroke-width=\"2\"><title>the first plot</title></circle>\n",
        map.X(survey.plot->X), map.Y(survey.plot->Y));
  }
  return text + bar + "<g fill=\"#202020\">\n" + labels.Text() + "</g>\n</svg>\n";
}

}  // namespace sylvomex
