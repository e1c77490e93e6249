// SPDX-License-Identifier: MIT
#include "region/plan_text.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "interchange/checksum.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "region/region_text.h"

namespace sylvomex {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kLargestTile = 16384;  // cells a side

/// Names of files may hold bytes that no text does.
std::string Dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

int Whole_In(const Json& json) {
  constexpr std::int64_t kLargest = 2'000'000'000;
  const bool is_whole = json.is_number_integer() &&
                        (!json.is_number_unsigned() ||
                         json.get<std::uint64_t>() <= static_cast<std::uint64_t>(kLargest));
  if (is_whole && std::abs(json.get<std::int64_t>()) <= kLargest) {
    return static_cast<int>(json.get<std::int64_t>());
  }
  throw Refused("a whole number is missing");
}

Json Json_Of(const Point3D& point) { return {point.X, point.Y, point.Z}; }
Point3D Point_In(const Json& json) {
  return {json.at(0).get<double>(), json.at(1).get<double>(), json.at(2).get<double>()};
}

Json Json_Of(const MapExtent& extent) {
  return {extent.west, extent.south, extent.east, extent.north};
}
MapExtent Extent_In(const Json& json) {
  return {json.at(0).get<double>(), json.at(1).get<double>(), json.at(2).get<double>(),
          json.at(3).get<double>()};
}

Json Json_Of(const TreeTopNumbers& n) {
  return {{"Tw", n.crown.Tw}, {"Zd", n.crown.Zd}, {"EZA", n.crown.EZA}, {"fHDOM", n.fHDOM},
          {"Hlow", n.Hlow},   {"Mesh", n.Mesh},   {"XYt", n.XYt},       {"Rl", n.Rl}};
}

TreeTopNumbers Numbers_In(const Json& json) {
  const auto number = [&json](const char* name) { return json.at(name).get<double>(); };
  TreeTopNumbers n;
  n.crown = {number("Tw"), number("Zd"), number("EZA")};
  n.fHDOM = number("fHDOM");
  n.Hlow = number("Hlow");
  n.Mesh = number("Mesh");
  n.XYt = number("XYt");
  n.Rl = number("Rl");
  return n;
}

Json Json_Of(const GivenOrthoimage& ortho) {
  return {{"extent", Json_Of(ortho.extent)},
          {"cell", ortho.cell},
          {"tile", ortho.tile},
          {"elsewhere", ortho.elsewhere},
          {"lowest_ground", ortho.lowest_ground}};
}

GivenOrthoimage Orthoimage_In(const Json& json) {
  GivenOrthoimage ortho{Extent_In(json.at("extent")), json.at("cell").get<double>(),
                        Whole_In(json.at("tile")), json.at("elsewhere").get<double>(),
                        json.at("lowest_ground").get<double>()};
  if (!(ortho.cell > 0) || ortho.tile < 1 || ortho.tile > kLargestTile)
    throw Refused("the orthoimage has no cells");
  return ortho;
}

Json Json_Of(const OwnCell& cell) {
  if (cell.tile) return {{"tile", Json_Of(*cell.tile)}};
  return {{"circle", {cell.X, cell.Y, cell.radius}}};
}

OwnCell Cell_In(const Json& json) {
  OwnCell cell;
  if (json.contains("tile")) {
    cell.tile = Extent_In(json.at("tile"));
    return cell;
  }
  const Json& circle = json.at("circle");
  cell.X = circle.at(0).get<double>();
  cell.Y = circle.at(1).get<double>();
  cell.radius = circle.at(2).get<double>();
  return cell;
}

Json Json_Of(const RegionTask& task) {
  Json json{{"id", task.id},
            {"kind", Kind_Name(task.kind)},
            {"cost", task.cost},
            {"memory_bytes", task.memory_bytes}};
  if (task.kind == TaskKind::OrthoTile) {
    json["column"] = task.tile.column;
    json["row"] = task.tile.row;
    json["image"] = task.tile.image;
    return json;
  }
  json["plot"] = task.plot.plot;
  json["cell"] = Json_Of(task.plot.cell);
  json["centre"] = Json_Of(task.plot.centre);
  json["radius"] = task.plot.radius;
  json["model_tree"] = task.plot.model_tree;
  json["model_top"] = Json_Of(task.plot.model_top);
  json["images"] = task.plot.images;
  return json;
}

int Image_In(const Json& json, const RegionPlan& plan) {
  const int image = Whole_In(json);
  const auto k = static_cast<std::size_t>(image);
  if (image >= 0 && k < plan.headers.size() && plan.image_files[k]) return image;
  throw Refused("image " + std::to_string(image) + " of a task is none of the plan's");
}

TileTask Tile_In(const Json& json, const RegionPlan& plan) {
  if (!plan.orthoimage) throw Refused("a tile without an orthoimage");
  const TileTask tile{Whole_In(json.at("column")), Whole_In(json.at("row")),
                      Image_In(json.at("image"), plan)};
  const TileGrid2D grid = Tiles_Of(*plan.orthoimage);
  if (tile.column < 0 || tile.row < 0 || tile.column >= grid.tile_columns ||
      tile.row >= grid.tile_rows) {
    throw Refused("a tile lies outside the orthoimage");
  }
  return tile;
}

PlotTask Plot_In(const Json& json, const RegionPlan& plan) {
  PlotTask plot;
  plot.plot = json.at("plot").get<std::string>();
  plot.cell = Cell_In(json.at("cell"));
  plot.centre = Point_In(json.at("centre"));
  plot.radius = json.at("radius").get<double>();
  plot.model_tree = json.at("model_tree").get<std::string>();
  plot.model_top = Point_In(json.at("model_top"));
  for (const Json& image : json.at("images")) {
    plot.images.push_back(Image_In(image, plan));
  }
  return plot;
}

RegionTask Task_In(const Json& json, const RegionPlan& plan) {
  RegionTask task;
  task.id = json.at("id").get<std::string>();
  if (!Is_Task_Name(task.id)) throw Refused("\"" + task.id + "\" is no id of a task");
  task.cost = json.at("cost").get<double>();
  if (!json.at("memory_bytes").is_number_unsigned()) throw Refused("a task's memory is missing");
  task.memory_bytes = json.at("memory_bytes").get<std::uint64_t>();
  const auto kind = json.at("kind").get<std::string>();
  if (kind == Kind_Name(TaskKind::OrthoTile)) {
    task.kind = TaskKind::OrthoTile;
    task.tile = Tile_In(json, plan);
  } else if (kind == Kind_Name(TaskKind::TreeTops)) {
    task.plot = Plot_In(json, plan);
  } else {
    throw Refused("\"" + kind + "\" is no kind of task");
  }
  if (!plan.dem_files || (task.kind == TaskKind::TreeTops && !plan.chm_files)) {
    throw Refused("the height models of its tasks are missing");
  }
  return task;
}

Json Json_Of(const FileContent& file) { return {{"bytes", file.bytes}, {"sha256", file.checksum}}; }

Json Stamp_Of(const FileContent& file) {
  return {file.stamp.modified_ns, file.stamp.changed_ns, file.stamp.inode};
}

/// What `one` says of header and data file; null for none.
Json Pair_Of(const std::optional<InputFiles>& files, Json (*one)(const FileContent&)) {
  if (!files) return nullptr;
  return Json::array({one(files->header), one(files->data)});
}

/// What `one` says of the files that tasks read.
Json Files_Of(const RegionPlan& plan, Json (*one)(const FileContent&)) {
  Json images = Json::array();
  for (const auto& files : plan.image_files) images.push_back(Pair_Of(files, one));
  return {{"images", images},
          {"dem", Pair_Of(plan.dem_files, one)},
          {"chm", Pair_Of(plan.chm_files, one)}};
}

FileContent Content_In(const Json& file, const Json& stamp) {
  return {file.at("bytes").get<std::uint64_t>(),
          file.at("sha256").get<std::string>(),
          {stamp.at(0).get<std::int64_t>(), stamp.at(1).get<std::int64_t>(),
           stamp.at(2).get<std::uint64_t>()}};
}

std::optional<InputFiles> Pair_In(const Json& files, const Json& stamps) {
  if (files.is_null()) return std::nullopt;
  return InputFiles{Content_In(files.at(0), stamps.at(0)), Content_In(files.at(1), stamps.at(1))};
}

void Read_Files(const Json& files, const Json& stamps, RegionPlan& plan) {
  for (std::size_t k = 0; k < plan.headers.size(); ++k) {
    plan.image_files.push_back(Pair_In(files.at("images").at(k), stamps.at("images").at(k)));
  }
  plan.dem_files = Pair_In(files.at("dem"), stamps.at("dem"));
  plan.chm_files = Pair_In(files.at("chm"), stamps.at("chm"));
}

Json Json_Of(const std::vector<PlanNote>& notes) {
  Json json = Json::array();
  for (const PlanNote& note : notes) json.push_back({{"id", note.id}, {"cause", note.cause}});
  return json;
}

std::vector<PlanNote> Notes_In(const Json& json) {
  std::vector<PlanNote> notes;
  for (const Json& note : json) {
    notes.push_back({note.at("id").get<std::string>(), note.at("cause").get<std::string>()});
  }
  return notes;
}

/// Names by which tasks open their files must come back from the plan as they are.
void Require_Text(const std::string& name) try {
  (void)Json(name).dump();
} catch (const nlohmann::json::exception&) {
  throw Refused(name + ": the name is not in UTF-8, so no plan can hold it");
}

Json Content_Of(const RegionPlan& plan) {
  Json json{{"version", kPlanVersion},
            {"site", plan.site.string()},
            {"crs", plan.crs},
            {"shift", {plan.shift.X, plan.shift.Y}},
            {"dem", plan.dem},
            {"chm", plan.chm},
            {"headers", plan.headers},
            {"files", Files_Of(plan, Json_Of)},
            {"boxes", Json_Of(plan.numbers)}};
  if (plan.orthoimage) json["orthoimage"] = Json_Of(*plan.orthoimage);
  json["left_out"] = Json_Of(plan.left_out);
  json["notes"] = Json_Of(plan.notes);
  json["bundles"] = plan.bundles;
  json["tasks"] = Json::array();
  for (const RegionTask& task : plan.tasks) json["tasks"].push_back(Json_Of(task));
  return json;
}

RegionPlan Plan_In(const Json& json) {
  RegionPlan plan;
  plan.id = json.at("id").get<std::string>();
  plan.site = json.at("site").get<std::string>();
  plan.crs = json.at("crs").get<std::string>();
  plan.shift = {json.at("shift").at(0).get<double>(), json.at("shift").at(1).get<double>()};
  plan.dem = json.at("dem").get<std::string>();
  plan.chm = json.at("chm").get<std::string>();
  plan.headers = json.at("headers").get<std::vector<std::string>>();
  Read_Files(json.at("files"), json.at("stamps"), plan);
  plan.numbers = Numbers_In(json.at("boxes"));
  if (json.contains("orthoimage")) plan.orthoimage = Orthoimage_In(json.at("orthoimage"));
  plan.left_out = Notes_In(json.at("left_out"));
  plan.notes = Notes_In(json.at("notes"));
  plan.bundles = json.at("bundles").get<std::vector<std::vector<std::string>>>();
  for (const Json& task : json.at("tasks")) plan.tasks.push_back(Task_In(task, plan));
  return plan;
}

void Require_Version(const Json& json) {
  const int version = Whole_In(json.at("version"));
  if (version == kPlanVersion) return;
  throw Refused("it is a plan of version " + std::to_string(version) +
                ", this program reads version " + std::to_string(kPlanVersion) +
                "; plan the region anew");
}

void Require_Unchanged(Json json) {
  const auto id = json.at("id").get<std::string>();
  json.erase("id");
  json.erase("stamps");
  if (Text_Checksum(Dumped(json)) != id) throw Refused("it was changed after it had been planned");
}

}  // namespace

std::string Plan_Text(RegionPlan& plan) {
  Require_Text(plan.site.string());
  for (const std::string& header : plan.headers) Require_Text(header);
  Json json = Content_Of(plan);
  plan.id = Text_Checksum(Dumped(json));
  json["id"] = plan.id;
  json["stamps"] = Files_Of(plan, Stamp_Of);
  return Dumped(json) + "\n";
}

RegionPlan Parse_Plan(std::string_view text, const std::string& name) try {
  Json json = Json::parse(text);
  if (!json.is_object() || !json.contains("version") || !json.contains("tasks")) {
    throw Refused("it is no plan");
  }
  Require_Version(json);
  Require_Unchanged(json);
  return Plan_In(json);
} catch (const Refused& refusal) {
  throw Refused(name + ": " + refusal.what());
} catch (const nlohmann::json::exception& error) {
  throw Refused(name + ": it is damaged: " + error.what());
}

RegionPlan Read_Plan(const std::filesystem::path& folder) {
  const std::filesystem::path file = folder / "plan.json";
  if (!std::filesystem::is_regular_file(file)) {
    throw Refused(folder.string() +
                  ": there is no plan.json in it (sylvomex-region plan makes it)");
  }
  return Parse_Plan(Read_Text_File(file.string()), file.string());
}

}  // namespace sylvomex
