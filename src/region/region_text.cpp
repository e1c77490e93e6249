// SPDX-License-Identifier: MIT
#include "region/region_text.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <set>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/toml_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr double kLargestNumber = 1e9;

/// A table of the file: its values by name, refusals that name both.
class Section {
 public:
  Section(const toml::table& table, std::string title, const std::string& file)
      : table_(table), title_(std::move(title)), file_(file) {}

  [[noreturn]] void Refuse(const std::string& cause) const { throw Refused(file_ + ": " + cause); }

  [[nodiscard]] std::string Name_Of(std::string_view key) const {
    return title_ + "\"" + std::string(key) + "\"";
  }

  void Allow(std::initializer_list<std::string_view> keys) const {
    const std::set<std::string_view> known(keys);
    for (const auto& [key, value] : table_) {
      if (!known.contains(key.str())) Refuse(Name_Of(key.str()) + " is not known");
    }
  }

  [[nodiscard]] bool Has(std::string_view key) const { return table_.contains(key); }

  [[nodiscard]] double Number(std::string_view key, std::optional<double> otherwise = {}) const {
    if (!Has(key) && otherwise) return *otherwise;
    const auto value = table_[key].value<double>();
    if (!value || !table_[key].is_number()) Refuse(Name_Of(key) + " is missing or no number");
    if (!(std::abs(*value) <= kLargestNumber)) Refuse(Name_Of(key) + " is out of range");
    return *value;
  }

  [[nodiscard]] double Positive(std::string_view key, std::optional<double> otherwise = {}) const {
    const double value = Number(key, otherwise);
    if (!(value > 0)) Refuse(Name_Of(key) + " must be above 0");
    return value;
  }

  [[nodiscard]] int Whole(std::string_view key, int low, int high, int otherwise) const {
    const double value = Number(key, otherwise);
    if (value != std::floor(value) || value < low || value > high) {
      Refuse(Name_Of(key) + " is not a whole number from " + std::to_string(low) + " to " +
             std::to_string(high));
    }
    return static_cast<int>(value);
  }

  [[nodiscard]] std::string Text(std::string_view key, std::optional<std::string> otherwise) const {
    if (!Has(key) && otherwise) return *otherwise;
    const auto value = table_[key].value<std::string>();
    if (!value || value->empty()) Refuse(Name_Of(key) + " is missing or no text");
    return *value;
  }

  [[nodiscard]] std::vector<std::string> Texts(std::string_view key) const {
    if (const auto one = table_[key].value<std::string>()) return {*one};
    const toml::array* const array = table_[key].as_array();
    if (array == nullptr) Refuse(Name_Of(key) + " is no list of texts");
    std::vector<std::string> texts;
    for (const toml::node& node : *array) {
      const auto text = node.value<std::string>();
      if (!text || text->empty()) Refuse(Name_Of(key) + " is no list of texts");
      texts.push_back(*text);
    }
    return texts;
  }

  [[nodiscard]] std::optional<Section> Inner(std::string_view key) const {
    if (!Has(key)) return std::nullopt;
    const toml::table* const inner = table_[key].as_table();
    if (inner == nullptr) Refuse(Name_Of(key) + " is no table");
    return Section(*inner, "[" + std::string(key) + "] ", file_);
  }

  [[nodiscard]] MapExtent Extent() const {
    const MapExtent extent{Number("west"), Number("south"), Number("east"), Number("north")};
    if (!(extent.west < extent.east && extent.south < extent.north)) {
      Refuse(title_ + "is empty: west must lie below east, south below north");
    }
    return extent;
  }

  [[nodiscard]] const toml::table& Table() const { return table_; }
  [[nodiscard]] const std::string& File() const { return file_; }

 private:
  const toml::table& table_;
  std::string title_;
  const std::string& file_;
};

TreeTopNumbers Numbers_In(const Section& root) {
  TreeTopNumbers numbers;
  const auto boxes = root.Inner("boxes");
  if (!boxes) return numbers;
  boxes->Allow({"Tw", "Zd", "EZA", "r", "fHDOM", "Hlow", "Mesh", "XYt", "Rl"});
  numbers.crown.Tw = boxes->Positive("Tw", numbers.crown.Tw);
  numbers.crown.Zd = boxes->Positive("Zd", numbers.crown.Zd);
  numbers.crown.EZA = boxes->Number("EZA", numbers.crown.EZA);
  numbers.r = boxes->Positive("r", numbers.r);
  numbers.fHDOM = boxes->Positive("fHDOM", numbers.fHDOM);
  numbers.Hlow = boxes->Number("Hlow", numbers.Hlow);
  numbers.Mesh = boxes->Positive("Mesh", numbers.Mesh);
  numbers.XYt = boxes->Positive("XYt", numbers.XYt);
  numbers.Rl = boxes->Number("Rl", numbers.Rl);
  return numbers;
}

std::vector<GivenPlot> Plots_In_List(const toml::array& list, const Section& root,
                                     double usual_radius) {
  std::vector<GivenPlot> plots;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const toml::table* const table = list[i].as_table();
    const std::string title = "plot " + std::to_string(i + 1) + ", ";
    if (table == nullptr) root.Refuse(title + "is no table");
    const Section plot(*table, title, root.File());
    plot.Allow({"id", "x", "y", "radius"});
    plots.push_back({plot.Text("id", std::nullopt), plot.Number("x"), plot.Number("y"),
                     plot.Positive("radius", usual_radius),
                     root.File() + ", plot " + std::to_string(i + 1)});
  }
  return plots;
}

std::vector<GivenPlot> Plots_In_Table(const fs::path& file, double usual_radius) {
  const std::string name = file.string();
  const CsvTable table(Read_Text_File(name), name);
  std::vector<GivenPlot> plots;
  for (const TextRow& row : table.Rows()) {
    const double radius = table.Optional_Number(row, "radius").value_or(usual_radius);
    if (!(radius > 0)) table.Refuse(row, "the radius must be above 0");
    const double X = table.Number(row, "x"), Y = table.Number(row, "y");
    if (!(std::max({std::abs(X), std::abs(Y), radius}) <= kLargestNumber)) {
      table.Refuse(row, "a number is out of range");
    }
    plots.push_back(
        {table.Text(row, "id"), X, Y, radius, name + ", line " + std::to_string(row.line)});
  }
  return plots;
}

/// A file that is named on the site's drives ("c:\\data\\a.csv"), or relative to the folder.
fs::path Named_File(const std::string& name, const fs::path& site, const fs::path& folder) {
  const bool is_on_drive = name.size() > 1 && name[1] == ':';
  return is_on_drive ? DriveMap(site).Locate(name).native : folder / name;
}

std::vector<GivenPlot> Plots_In(const Section& root, const RegionOrder& order,
                                const fs::path& folder) {
  if (!root.Has("plots")) return {};
  if (const toml::array* const list = root.Table()["plots"].as_array()) {
    return Plots_In_List(*list, root, order.numbers.r);
  }
  const std::string name = root.Text("plots", std::nullopt);
  return Plots_In_Table(Named_File(name, order.site, folder), order.numbers.r);
}

void Require_Names(const std::vector<GivenPlot>& plots) {
  std::map<std::string, std::string> seen;
  for (const GivenPlot& plot : plots) {
    if (!Is_Plot_Name(plot.id)) {
      throw Refused(plot.where + ": \"" + plot.id +
                    "\" is no id: 1 to 64 letters, digits, '-', '_' and '.', not '.' first");
    }
    const auto [other, is_new] = seen.try_emplace(plot.id, plot.where);
    if (!is_new) {
      throw Refused(plot.where + ": the id " + plot.id + " stands in " + other->second +
                    " already");
    }
  }
}

std::optional<GivenArea> Area_In(const Section& root) {
  const auto area = root.Inner("area");
  if (!area) return std::nullopt;
  area->Allow({"west", "south", "east", "north", "tile"});
  return GivenArea{area->Extent(), area->Positive("tile")};
}

std::optional<GivenOrthoimage> Orthoimage_In(const Section& root) {
  const auto ortho = root.Inner("orthoimage");
  if (!ortho) return std::nullopt;
  ortho->Allow({"west", "south", "east", "north", "cell", "tile", "elsewhere", "lowest_ground"});
  GivenOrthoimage given;
  given.extent = ortho->Extent();
  given.cell = ortho->Positive("cell");
  given.tile = ortho->Whole("tile", 16, 16384, given.tile);
  given.elsewhere = ortho->Number("elsewhere", given.elsewhere);
  given.lowest_ground = ortho->Number("lowest_ground", given.lowest_ground);
  return given;
}

void Require_Work(const RegionOrder& order, const Section& root) {
  const bool has_plots = !order.plots.empty() || order.area;
  if (!has_plots && !order.orthoimage) {
    root.Refuse("neither plots nor an [area] nor an [orthoimage] is given");
  }
  if (!order.plots.empty() && order.area) root.Refuse("plots and an [area] exclude each other");
  if (order.headers.empty() == order.cameras.empty()) {
    root.Refuse("either \"headers\" or \"cameras\" must name the images");
  }
  if (order.least_images > order.most_images) root.Refuse("least_images is above most_images");
  if (!has_plots) return;
  if (order.chm.empty()) root.Refuse("\"chm\" is missing, plots need a canopy model");
  if (order.model_trees.empty()) root.Refuse("[model_trees] is missing, plots need measured trees");
}

RegionOrder Order_In(const Section& root, const fs::path& folder) {
  root.Allow({"site", "crs", "headers", "cameras", "dem", "chm", "least_images", "most_images",
              "plots", "area", "boxes", "model_trees", "orthoimage"});
  RegionOrder order;
  order.site = folder / root.Text("site", std::nullopt);
  order.crs = root.Text("crs", "");
  if (root.Has("headers")) order.headers = root.Texts("headers");
  order.cameras = root.Text("cameras", "");
  order.dem = root.Text("dem", std::nullopt);
  order.chm = root.Text("chm", "");
  order.least_images = root.Whole("least_images", 2, 9, order.least_images);
  order.most_images = root.Whole("most_images", 2, 9, order.most_images);
  order.numbers = Numbers_In(root);
  order.plots = Plots_In(root, order, folder);
  Require_Names(order.plots);
  order.area = Area_In(root);
  if (const auto trees = root.Inner("model_trees")) {
    trees->Allow({"file", "reach"});
    order.model_trees = Named_File(trees->Text("file", std::nullopt), order.site, folder);
    order.reach = trees->Positive("reach", order.reach);
  }
  order.orthoimage = Orthoimage_In(root);
  Require_Work(order, root);
  return order;
}

}  // namespace

bool Is_Task_Name(std::string_view text) {
  constexpr std::string_view kFailedEnding = ".failed.json";  // of a note beside a task's folder
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
  return !text.empty() && text.size() <= 80 && text.front() != '.' &&
         !text.ends_with(kFailedEnding) &&
         text.find_first_not_of(kAllowed) == std::string_view::npos;
}

bool Is_Plot_Name(std::string_view text) { return text.size() <= 64 && Is_Task_Name(text); }

RegionOrder Parse_Region(std::string_view text, const fs::path& folder, const std::string& name) {
  const toml::table root = Parse_Toml(text, name);
  return Order_In(Section(root, "", name), folder);
}

RegionOrder Read_Region(const fs::path& file) {
  return Parse_Region(Read_Text_File(file.string()), fs::absolute(file).parent_path(),
                      file.string());
}

}  // namespace sylvomex
