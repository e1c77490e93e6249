// SPDX-License-Identifier: MIT
#include <algorithm>

#include "interchange/printed_text.h"
#include "region/region_survey.h"

namespace sylvomex {
namespace {

constexpr double kMapSide = 900;   // pixels of the longer side
constexpr double kMapBorder = 20;  // pixels
constexpr std::size_t kMostListed = 1000;
constexpr std::size_t kMostDots = 50000;

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '<') {
      escaped += "&lt;";
    } else if (c == '&') {
      escaped += "&amp;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

MapExtent Place_Of(const RegionPlan& plan, const RegionTask& task) {
  if (task.kind == TaskKind::OrthoTile) {
    const TilePlace place = Place_Of(*plan.orthoimage, task.tile.column, task.tile.row);
    const double cell = plan.orthoimage->cell;
    return {place.west, place.south, place.west + place.columns * cell,
            place.south + place.rows * cell};
  }
  const OwnCell& cell = task.plot.cell;
  if (cell.tile) return *cell.tile;
  return {cell.X - cell.radius, cell.Y - cell.radius, cell.X + cell.radius, cell.Y + cell.radius};
}

struct Map {
  MapExtent extent;  // working coordinates
  double scale = 1;  // pixels a metre

  [[nodiscard]] double X(double X) const { return kMapBorder + (X - extent.west) * scale; }
  [[nodiscard]] double Y(double Y) const { return kMapBorder + (extent.north - Y) * scale; }
};

Map Map_Of(const RegionPlan& plan, const RegionSurvey& survey) {
  Map map{{1e12, 1e12, -1e12, -1e12}, 1};
  for (const TaskStatus& status : survey.tasks) {
    const MapExtent place = Place_Of(plan, *status.task);
    map.extent = {std::min(map.extent.west, place.west), std::min(map.extent.south, place.south),
                  std::max(map.extent.east, place.east), std::max(map.extent.north, place.north)};
  }
  map.scale = kMapSide / std::max({map.extent.east - map.extent.west,
                                   map.extent.north - map.extent.south, 1.0});
  return map;
}

const char* Colour_Of(const TaskStatus& status) {
  if (status.failed) return "#d03030";
  if (!status.done) return "#b0b0b0";
  return status.is_slow ? "#e09020" : "#50a060";
}

std::string State_Of(const TaskStatus& status) {
  if (status.failed) return "failed: " + status.failed->cause;
  if (!status.done) return "not done";
  return Printed("done in %.2f s", status.done->seconds.total);
}

std::string Shape_Of(const RegionPlan& plan, const Map& map, const TaskStatus& status) {
  const RegionTask& task = *status.task;
  const MapExtent place = Place_Of(plan, task);
  const bool is_tile = task.kind == TaskKind::OrthoTile;
  const std::string paint =
      Printed("fill=\"%s\" fill-opacity=\"%s\" stroke=\"%s\"", Colour_Of(status),
              is_tile ? "0.15" : "0.45", Colour_Of(status));
  const std::string title = "<title>" + Escaped(task.id + ", " + State_Of(status)) + "</title>";
  if (!is_tile && !task.plot.cell.tile) {
    const OwnCell& cell = task.plot.cell;
    return Printed("<circle cx=\"%.2f\" cy=\"%.2f\" r=\"%.2f\" ", map.X(cell.X), map.Y(cell.Y),
                   cell.radius * map.scale) +
           paint + ">" + title + "</circle>\n";
  }
  return Printed("<rect x=\"%.2f\" y=\"%.2f\" width=\"%.2f\" height=\"%.2f\" ", map.X(place.west),
                 map.Y(place.north), (place.east - place.west) * map.scale,
                 (place.north - place.south) * map.scale) +
         paint + ">" + title + "</rect>\n";
}

std::string Count_Lines(const RegionPlan& plan, const RegionSurvey& survey) {
  const TaskSeconds& s = survey.seconds;
  std::string text =
      Printed("Tasks: %zu, done %zu, failed %zu, not done %zu, slow %zu\n", survey.tasks.size(),
              survey.done, survey.failed, survey.Missing() - survey.failed, survey.slow);
  text += Printed(
      "Seconds: %.2f in all, reading %.2f, computing %.2f, writing %.2f\n"
      "Most memory: %.1f MB, task %s\n",
      s.total, s.read, s.compute, s.write, static_cast<double>(survey.peak_memory_bytes) / 1048576,
      survey.largest_task.empty() ? "none" : survey.largest_task.c_str());
  text += Printed("Left out when planned: %zu\n", plan.left_out.size());
  return text;
}

std::string Listed(const char* title, const std::vector<std::string>& lines) {
  if (lines.empty()) return "";
  std::string text = std::string("\n") + title + "\n";
  for (std::size_t i = 0; i < std::min(lines.size(), kMostListed); ++i)
    text += "  " + lines[i] + "\n";
  if (lines.size() > kMostListed) {
    text += Printed("  and %zu more\n", lines.size() - kMostListed);
  }
  return text;
}

}  // namespace

std::string Survey_Text(const RegionPlan& plan, const RegionSurvey& survey) {
  std::vector<std::string> failed, slow, left_out, notes;
  for (const TaskStatus& status : survey.tasks) {
    if (status.failed) {
      failed.push_back(status.task->id + Printed(" (tries: %d): ", status.failed->tries) +
                       status.failed->cause);
    }
    if (status.is_slow) slow.push_back(status.task->id + ", " + State_Of(status));
  }
  for (const PlanNote& note : plan.left_out) left_out.push_back(note.id + ": " + note.cause);
  for (const PlanNote& note : plan.notes) notes.push_back(note.id + ": " + note.cause);
  return "Plan " + plan.id.substr(0, 12) + ", site " + plan.site.string() + "\n" +
         Count_Lines(plan, survey) + Listed("Failed", failed) + Listed("Slow", slow) +
         Listed("Left out", left_out) + Listed("Notes", notes);
}

std::string Survey_Map(const RegionPlan& plan, const RegionSurvey& survey,
                       const std::vector<Point3D>& tops) {
  const Map map = Map_Of(plan, survey);
  std::string text = Printed(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" "
      "font-family=\"sans-serif\">\n",
      map.X(map.extent.east) + kMapBorder, map.Y(map.extent.south) + kMapBorder);
  text += "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  for (const TaskKind kind : {TaskKind::OrthoTile, TaskKind::TreeTops}) {
    for (const TaskStatus& status : survey.tasks) {
      if (status.task->kind == kind) text += Shape_Of(plan, map, status);
    }
  }
  for (std::size_t i = 0; i < std::min(tops.size(), kMostDots); ++i) {
    text += Printed("<circle cx=\"%.2f\" cy=\"%.2f\" r=\"1.2\" fill=\"#204020\"/>\n",
                    map.X(tops[i].X - plan.shift.X), map.Y(tops[i].Y - plan.shift.Y));
  }
  return text + "</svg>\n";
}

std::string Survey_Html(const RegionPlan& plan, const RegionSurvey& survey,
                        const std::vector<Point3D>& tops) {
  return "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Region</title></head>\n"
         "<body style=\"font-family:sans-serif\">\n<h1>Region</h1>\n" +
         Survey_Map(plan, survey, tops) +
         "<p>Green: done; orange: done, but slow; red: failed; grey: not done; dots: tree "
         "tops.</p>\n<pre>" +
         Escaped(Survey_Text(plan, survey)) + "</pre>\n</body></html>\n";
}

}  // namespace sylvomex
