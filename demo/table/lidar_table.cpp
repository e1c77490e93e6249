// SPDX-License-Identifier: MIT
#include "demo/table/lidar_table.h"

#include <algorithm>
#include <functional>

#include "demo/scene/lidar_campaign.h"
#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kNameWidth = 30, kColumnWidth = 9;

double Share(std::size_t part, std::size_t whole) {
  return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

double Box_Area(const std::vector<TilePulse>& pulses) {
  double west = 1e30, east = -1e30, south = 1e30, north = -1e30;
  for (const TilePulse& pulse : pulses) {
    const Point3D& first = pulse.echoes[0];
    west = std::min(west, first.X);
    east = std::max(east, first.X);
    south = std::min(south, first.Y);
    north = std::max(north, first.Y);
  }
  return pulses.empty() ? 0 : (east - west) * (north - south);
}

double Height_Above(const RasterModel& ground, const Point3D& point) {
  return point.Z - Raster_Height(ground, point.X, point.Y);
}

CanopyHeights Canopy_Of(const std::vector<double>& heights) {
  std::vector<double> high;
  std::copy_if(heights.begin(), heights.end(), std::back_inserter(high),
               [](double height) { return height >= kCanopyBegin; });
  const double cover = Share(high.size(), heights.size());
  return {cover, Statistics_Of(std::move(high))};
}

void Count_Echoes(const std::vector<TilePulse>& pulses, LidarSummary& summary) {
  std::array<std::size_t, 4> with{};
  std::size_t echoes = 0;
  for (const TilePulse& pulse : pulses) {
    if (pulse.count < 1) continue;
    ++with[static_cast<std::size_t>(pulse.count) - 1];
    echoes += static_cast<std::size_t>(pulse.count);
  }
  for (std::size_t i = 0; i < with.size(); ++i) summary.share[i] = Share(with[i], pulses.size());
  summary.echoes_per_pulse = Share(echoes, pulses.size());
}

RasterModel Load_Raster(const DriveMap& drives, const char* header) {
  RasterModel model;
  Read_Raster_Header(drives.Locate(header), model);
  Dimension_Cells(model);
  Read_Cells(drives.Locate(model.CellFile.Trimmed()), model);
  return model;
}

std::string Cell(const std::string& text) {
  return std::string(text.size() < kColumnWidth ? kColumnWidth - text.size() : 0, ' ') + text;
}

std::string Name(std::string text) {
  text.resize(kNameWidth, ' ');
  return text;
}

using ValueOf = std::function<double(const LidarSummary&)>;

std::string Line(const char* name, const std::vector<YearSummary>& campaigns, const ValueOf& value,
                 int decimals) {
  std::string line = Name(name);
  for (const YearSummary& campaign : campaigns) {
    line += Cell(Fixed_Decimals(value(campaign.lidar), decimals));
  }
  return line;
}

using CanopyValue = std::function<double(const CanopyHeights&)>;

std::string Canopy_Line(const char* name, const std::vector<YearSummary>& campaigns,
                        const CanopyHeights& truth, const CanopyValue& value) {
  const auto of_canopy = [&value](const LidarSummary& lidar) { return value(lidar.canopy); };
  return Line(name, campaigns, of_canopy, 2) + Cell(Fixed_Decimals(value(truth), 2)) + "\n";
}

std::string Heading(const std::vector<YearSummary>& campaigns) {
  std::string line = Name("campaign");
  for (const YearSummary& campaign : campaigns) line += Cell(std::to_string(campaign.year));
  return line + Cell("truth") + "\n";
}

std::string Pulse_Lines(const std::vector<YearSummary>& campaigns) {
  std::string text = Line(
                         "pulses a square metre", campaigns,
                         [](const LidarSummary& lidar) { return lidar.density; }, 2) +
                     "\n" +
                     Line(
                         "echoes a pulse", campaigns,
                         [](const LidarSummary& lidar) { return lidar.echoes_per_pulse; }, 2) +
                     "\n";
  constexpr std::array<const char*, 4> names{"  pulses with 1 echo, %", "  2 echoes, %",
                                             "  3 echoes, %", "  4 echoes, %"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += Line(
                names[i], campaigns,
                [i](const LidarSummary& lidar) { return 100 * lidar.share[i]; }, 1) +
            "\n";
  }
  return text;
}

std::string Ground_Lines(const std::vector<YearSummary>& campaigns) {
  return Line(
             "ground echoes, mean error, m", campaigns,
             [](const LidarSummary& lidar) { return lidar.ground.mean; }, 3) +
         "\n" +
         Line(
             "  RMS error, m", campaigns,
             [](const LidarSummary& lidar) { return lidar.ground.rms; }, 3) +
         "\n";
}

}  // namespace

LidarSummary Summarize_Lidar(const std::vector<TilePulse>& pulses, const RasterModel& ground) {
  LidarSummary summary;
  summary.pulses = pulses.size();
  const double area = Box_Area(pulses);
  summary.density = area > 0 ? static_cast<double>(pulses.size()) / area : 0;
  Count_Echoes(pulses, summary);
  std::vector<double> first, on_ground;
  for (const TilePulse& pulse : pulses) {
    if (pulse.count < 1) continue;
    first.push_back(Height_Above(ground, pulse.echoes[0]));
    const double last =
        Height_Above(ground, pulse.echoes[static_cast<std::size_t>(pulse.count) - 1]);
    if (std::abs(last) <= kGroundBand) on_ground.push_back(last);
  }
  summary.canopy = Canopy_Of(first);
  summary.ground = Statistics_Of(std::move(on_ground));
  return summary;
}

CanopyHeights True_Canopy(const RasterModel& ground, const RasterModel& canopy, double margin) {
  std::vector<double> heights;
  const double cell = canopy.CellSize;
  const int side = static_cast<int>((kForestSide - 2 * margin) / cell);
  for (int i = 0; i < side; ++i) {
    for (int j = 0; j < side; ++j) {
      const double X = kForestWest + margin + (i + 0.5) * cell;
      const double Y = kForestSouth + margin + (j + 0.5) * cell;
      heights.push_back(Raster_Height(canopy, X, Y) - Raster_Height(ground, X, Y));
    }
  }
  return Canopy_Of(heights);
}

std::string Table_Text(const std::vector<YearSummary>& campaigns, const CanopyHeights& truth) {
  return Heading(campaigns) + Pulse_Lines(campaigns) +
         Canopy_Line("canopy cover, %", campaigns, truth,
                     [](const CanopyHeights& canopy) { return 100 * canopy.cover; }) +
         Canopy_Line("canopy height, mean, m", campaigns, truth,
                     [](const CanopyHeights& canopy) { return canopy.heights.mean; }) +
         Canopy_Line("  median, m", campaigns, truth,
                     [](const CanopyHeights& canopy) { return canopy.heights.median; }) +
         Canopy_Line("  95 %, m", campaigns, truth,
                     [](const CanopyHeights& canopy) { return canopy.heights.p95; }) +
         Canopy_Line("  largest, m", campaigns, truth,
                     [](const CanopyHeights& canopy) { return canopy.heights.largest; }) +
         Ground_Lines(campaigns);
}

std::string Lidar_Table_Of_Site(const std::string& root) {
  const DriveMap drives(root);
  const RasterModel ground = Load_Raster(drives, "c:\\data\\demo\\dem.hdr");
  const RasterModel canopy = Load_Raster(drives, "c:\\data\\demo\\chm.hdr");
  std::vector<YearSummary> campaigns;
  double margin = 0;
  for (const LidarCampaign& campaign : Lidar_Campaigns()) {
    const int year = campaign.year;
    campaigns.push_back({year, Summarize_Lidar(Read_Lidar_Campaign(drives, year), ground)});
    margin = std::max(margin, campaign.inset);
  }
  return Table_Text(campaigns, True_Canopy(ground, canopy, margin));
}

}  // namespace sylvomex::demo
