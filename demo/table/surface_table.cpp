// SPDX-License-Identifier: MIT
#include "demo/table/surface_table.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>

#include "demo/write/exact_text.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/point3d.h"

namespace sylvomex::demo {
namespace {

constexpr double kPairLimit = 0.35, kTripletLimit = 0.15;  // metres
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

std::string Line(const SurfaceSample& sample) {
  std::vector<double> kept;
  std::size_t within = 0;
  for (const double difference : sample.differences) {
    if (std::abs(difference) <= kBlunder) kept.push_back(difference);
    within += std::abs(difference) <= sample.limit ? 1 : 0;
  }
  const SampleStatistics all = Statistics_Of(sample.differences);
  const SampleStatistics good = Statistics_Of(kept);
  const double share =
      100 * static_cast<double>(within) / static_cast<double>(std::max<std::size_t>(all.n, 1));
  std::string name = sample.name;
  name.resize(24, ' ');
  return name + Right(std::to_string(all.n)) + Right(Fixed_Decimals(sample.limit, 2)) +
         Right(Fixed_Decimals(share, 1) + " %") + Right(Fixed_Decimals(all.mean, 3)) +
         Right(Fixed_Decimals(all.rms, 3)) + Right(std::to_string(all.n - good.n)) +
         Right(Fixed_Decimals(good.mean, 3)) + Right(Fixed_Decimals(good.rms, 3)) + "\n";
}

}  // namespace

std::vector<SurfaceSample> Read_Surface_Points(std::string_view transcript) {
  std::vector<SurfaceSample> samples;
  std::istringstream text{std::string(transcript)};
  std::optional<LastWord> place;  // kind and true height, until its solution was read
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("say ")) place = Split_Last(line.substr(4));
    if (!place || !line.starts_with("Solution3D = ")) continue;
    const double difference = Parse_Double(Split_Last(line).word) - Parse_Double(place->word);
    Sample_Named(samples, place->before).differences.push_back(difference);
    place.reset();
  }
  return samples;
}

std::vector<SurfaceSample> Read_Surface_Nodes(const FilePath& nodes, const Scene& scene,
                                              const std::string& name, double limit) {
  SurfaceSample ground{name + " ground", {}, limit}, crown{name + " crowns", {}, limit};
  std::istringstream text(Read_Whole_File(nodes));
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    const Point3D node = Read_Node(line, nodes, ++number);
    const Cover cover = Cover_At(scene, node.X, node.Y);
    if (cover == Cover::Ground) {
      ground.differences.push_back(node.Z - Ground_Height(scene, node.X, node.Y));
    } else if (cover == Cover::Crown) {
      crown.differences.push_back(node.Z - Canopy_Height(scene, node.X, node.Y));
    }
  }
  return {ground, crown};
}

std::string Table_Text(const std::vector<SurfaceSample>& samples) {
  std::string table =
      "found less true, m              n    limit   within     mean      RMS    > 1 m  mean, "
      "RMS without those\n";
  for (const SurfaceSample& sample : samples) table += Line(sample);
  return table;
}

}  // namespace sylvomex::demo
