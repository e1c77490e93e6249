// SPDX-License-Identifier: MIT
#include "demo/table/surface_table.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>
#include <utility>

#include "demo/table/residual_table.h"
#include "demo/write/exact_text.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/point3d.h"

namespace sylvomex::demo {
namespace {

constexpr double kPairLimit = 0.35, kTripletLimit = 0.15;  // metres
constexpr double kTripletPolygonLimit = 0.2;               // metres
constexpr double kPointAcceptance = 0.55;                  // score of a single height
constexpr double kBlunder = 1.0;                           // metres
constexpr double kOutlineReach = 1.0;                      // metres

std::string Right(const std::string& text) {
  constexpr std::size_t width = 9;
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

SurfaceSample& Sample_Named(std::vector<SurfaceSample>& samples, const std::string& name) {
  const auto held = std::find_if(samples.begin(), samples.end(),
                                 [&](const SurfaceSample& sample) { return sample.name == name; });
  if (held != samples.end()) return *held;
  samples.push_back({name, {}, name.starts_with("pair") ? kPairLimit : kTripletLimit});
  return samples.back();
}

/// The last word of a text, and what stands before it.
struct LastWord {
  std::string before, word;
};

LastWord Split_Last(const std::string& text) {
  const std::size_t blank = text.rfind(' ');
  if (blank == std::string::npos) return {"", text};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

enum class Cover { Ground, Crown, Outline };

Cover Cover_At(const Scene& scene, double X, double Y) {
  int covered = 0;
  for (const double dx : {-kOutlineReach, 0.0, kOutlineReach}) {
    for (const double dy : {-kOutlineReach, 0.0, kOutlineReach}) {
      const double ground = Ground_Height(scene, X + dx, Y + dy);
      covered += Canopy_Height(scene, X + dx, Y + dy) > ground ? 1 : 0;
    }
  }
  if (covered == 0) return Cover::Ground;
  return covered == 9 ? Cover::Crown : Cover::Outline;
}

Point3D Read_Node(const std::string& line, const FilePath& file, int number) {
  ListReader list(line, file, number);
  Point3D node;
  for (double* value : {&node.X, &node.Y, &node.Z}) *value = list.Read_Double();
  return node;
}

void Add_Unless_Empty(std::vector<SurfaceSample>& samples, SurfaceSample sample) {
  if (!sample.differences.empty()) samples.push_back(std::move(sample));
}

void Append(std::vector<SurfaceSample>& samples, std::vector<SurfaceSample> more) {
  for (SurfaceSample& sample : more) samples.push_back(std::move(sample));
}

FilePath File_In(const std::filesystem::path& folder, const std::string& name) {
  return {name, folder / name};
}

/// Share of the values within a limit, as a text.
std::string Share_Within(const std::vector<double>& values, double limit) {
  const auto within = std::count_if(values.begin(), values.end(),
                                    [limit](double value) { return std::abs(value) <= limit; });
  const auto n = static_cast<double>(std::max<std::size_t>(values.size(), 1));
  return Fixed_Decimals(100 * static_cast<double>(within) / n, 1) + " %";
}

std::string Line(const SurfaceSample& sample) {
  std::vector<double> all, accepted, kept;
  for (const SurfaceDifference& difference : sample.differences) {
    all.push_back(difference.metres);
    if (!difference.accepted) continue;
    accepted.push_back(difference.metres);
    if (std::abs(difference.metres) <= kBlunder) kept.push_back(difference.metres);
  }
  const SampleStatistics statistics = Statistics_Of(accepted);
  std::string name = sample.name;
  name.resize(36, ' ');
  return name + Right(std::to_string(all.size())) + Right(Fixed_Decimals(sample.limit, 2)) +
         Right(Share_Within(all, sample.limit)) + Right(std::to_string(accepted.size())) +
         Right(Share_Within(accepted, sample.limit)) + Right(Fixed_Decimals(statistics.mean, 3)) +
         Right(Fixed_Decimals(statistics.rms, 3)) +
         Right(std::to_string(accepted.size() - kept.size())) +
         Right(Fixed_Decimals(Statistics_Of(kept).rms, 3)) + "\n";
}

}  // namespace

std::vector<SurfaceSample> Read_Surface_Points(std::string_view transcript) {
  std::vector<SurfaceSample> samples;
  std::istringstream text{std::string(transcript)};
  std::optional<LastWord> place;  // kind and true height, until its solution was read
  double score = 0;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("say ")) place = Split_Last(line.substr(4));
    if (line.starts_with("ObservationRecord.Rmse = ")) score = Parse_Double(Split_Last(line).word);
    if (!place || !line.starts_with("Solution3D = ")) continue;
    const double difference = Parse_Double(Split_Last(line).word) - Parse_Double(place->word);
    Sample_Named(samples, place->before)
        .differences.push_back({difference, score > kPointAcceptance});
    place.reset();
  }
  return samples;
}

std::vector<SurfaceSample> Read_Surface_Nodes(const FilePath& nodes, const Scene& scene,
                                              const std::string& name, double limit) {
  SurfaceSample ground{name + ", ground", {}, limit}, crown{name + ", crowns", {}, limit};
  std::istringstream text(Read_Whole_File(nodes));
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    const Point3D node = Read_Node(line, nodes, ++number);
    const Cover cover = Cover_At(scene, node.X, node.Y);
    if (cover == Cover::Ground) {
      ground.differences.push_back({node.Z - Ground_Height(scene, node.X, node.Y)});
    } else if (cover == Cover::Crown) {
      crown.differences.push_back({node.Z - Canopy_Height(scene, node.X, node.Y)});
    }
  }
  std::vector<SurfaceSample> samples;
  Add_Unless_Empty(samples, std::move(ground));
  Add_Unless_Empty(samples, std::move(crown));
  return samples;
}

SurfaceSample Read_Surface_Residuals(const FilePath& file, const std::string& name, double limit) {
  SurfaceSample sample{name, {}, limit};
  for (const ComparedPoint& point : Read_Compared_Points(file)) {
    sample.differences.push_back({point.tin - point.Z});
  }
  return sample;
}

std::vector<SurfaceSample> Surface_Samples_Of(const std::filesystem::path& folder,
                                              const Scene& scene) {
  std::vector<SurfaceSample> samples;
  for (const char* session : {"heath_points", "surface_points"}) {
    const FilePath transcript = File_In(folder, std::string(session) + "-transcript.txt");
    Append(samples, Read_Surface_Points(Read_Whole_File(transcript)));
  }
  const auto add_nodes = [&](const char* file, const char* name, double limit) {
    Append(samples, Read_Surface_Nodes(File_In(folder, file), scene, name, limit));
  };
  add_nodes("heath_pair.nod", "pair polygon, heath", kPairLimit);
  add_nodes("heath_triplet.nod", "triplet polygon, heath", kTripletPolygonLimit);
  add_nodes("surface_pair.nod", "pair polygon, forest", kPairLimit);
  add_nodes("canopy_triplet.nod", "triplet polygon, canopy", kTripletPolygonLimit);
  const auto add_residuals = [&](const char* file, const char* name, double limit) {
    samples.push_back(Read_Surface_Residuals(File_In(folder, file), name, limit));
  };
  add_residuals("heath_pair-residuals.txt", "TIN of the pair, heath", kPairLimit);
  add_residuals("heath_triplet-residuals.txt", "TIN of the triplet, heath", kTripletPolygonLimit);
  add_residuals("canopy_triplet-residuals.txt", "TIN of the triplet, canopy", kTripletPolygonLimit);
  return samples;
}

std::string Table_Text(const std::vector<SurfaceSample>& samples) {
  std::string table =
      "found less true, m                          n    limit   within accepted   within     mean  "
      "    "
      "RMS    > 1 m  RMS without those\n";
  for (const SurfaceSample& sample : samples) table += Line(sample);
  return table;
}

}  // namespace sylvomex::demo
