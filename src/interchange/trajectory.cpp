// SPDX-License-Identifier: MIT
#include "interchange/trajectory.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <string_view>

#include "interchange/coordinate_system.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kWeek = 604800;         // seconds
constexpr double kStandardOffset = 1e9;  // seconds
constexpr std::size_t kSbetBytes = 17 * sizeof(double);

bool Is_Text(std::string_view content) {
  return std::none_of(content.begin(),
                      content.begin() + std::min<std::ptrdiff_t>(1000, std::ssize(content)),
                      [](char c) { return c == '\0'; });
}

Trajectory From_Csv(const std::string& content, const std::string& name) {
  const CsvTable table(content, name);
  Trajectory trajectory;
  for (const TextRow& row : table.Rows()) {
    trajectory.Add(table.Number(row, "t"),
                   {table.Number(row, "X"), table.Number(row, "Y"), table.Number(row, "Z")});
  }
  return trajectory;
}

Trajectory From_Sbet(const std::string& content, const std::string& name, const std::string& site) {
  if (content.empty() || content.size() % kSbetBytes != 0) {
    throw Refused(name + ": neither a CSV table nor records of 17 doubles, it has " +
                  std::to_string(content.size()) + " bytes");
  }
  const auto from = Coordinate_System("EPSG:4326");
  const auto to = Coordinate_System(site);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&from, &to));
  Trajectory trajectory;
  for (std::size_t at = 0; at < content.size(); at += kSbetBytes) {
    double values[4];
    std::memcpy(values, content.data() + at, sizeof values);
    double X = values[2] * 180 / std::numbers::pi;
    double Y = values[1] * 180 / std::numbers::pi;
    if (!std::isfinite(values[0]) || !std::isfinite(values[3]) || transform == nullptr ||
        std::abs(Y) > 90 || transform->Transform(1, &X, &Y) == 0) {
      throw Refused(name + ": record " + std::to_string(at / kSbetBytes + 1) +
                    " holds no position in the site's system");
    }
    trajectory.Add(values[0], {X, Y, values[3]});
  }
  return trajectory;
}

}  // namespace

void Trajectory::Add(double time, const Point3D& at) { rows_.push_back({time, at}); }

void Trajectory::Sort() {
  std::stable_sort(rows_.begin(), rows_.end(),
                   [](const Row& a, const Row& b) { return a.time < b.time; });
}

bool Trajectory::Covers(double time) const { return time >= First_Time() && time <= Last_Time(); }

Point3D Trajectory::At(double time) const {
  const auto after = std::upper_bound(rows_.begin(), rows_.end(), time,
                                      [](double t, const Row& row) { return t < row.time; });
  if (after == rows_.begin()) return rows_.front().at;
  if (after == rows_.end()) return rows_.back().at;
  const Row& a = *(after - 1);
  const double part = (time - a.time) / (after->time - a.time);
  return {a.at.X + part * (after->at.X - a.at.X), a.at.Y + part * (after->at.Y - a.at.Y),
          a.at.Z + part * (after->at.Z - a.at.Z)};
}

Trajectory Read_Trajectory(const std::filesystem::path& file, const std::string& site) try {
  const std::string name = file.string();
  const std::string content = Read_Whole_File({name, file});
  Trajectory trajectory =
      Is_Text(content) ? From_Csv(content, name) : From_Sbet(content, name, site);
  if (trajectory.Count() < 2) throw Refused(name + ": less than two positions");
  trajectory.Sort();
  return trajectory;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

double Trajectory_Time(const Trajectory& trajectory, double time, bool standard_time) {
  if (!standard_time) return time;
  if (trajectory.Last_Time() > 2 * kWeek) {
    // Seconds from 1980, with or without the offset of the points.
    return trajectory.First_Time() > kStandardOffset ? time + kStandardOffset : time;
  }
  return std::fmod(time + kStandardOffset, kWeek);
}

}  // namespace sylvomex
