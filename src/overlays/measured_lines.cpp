// SPDX-License-Identifier: MIT
#include "overlays/measured_lines.h"

#include <algorithm>
#include <charconv>

namespace sylvomex {
namespace {

constexpr std::size_t kCommentLength = 30;
constexpr int kMostRays = 9;

/// Takes comma-separated fields from the front of a line; after a bad one it stays bad.
class Fields {
 public:
  explicit Fields(std::string_view line) : rest_(line) {}

  template <class Number>
  Number Take() {
    std::string_view field = Take_Text(std::min(rest_.find(','), rest_.size()));
    while (field.starts_with(' ')) field.remove_prefix(1);
    while (field.ends_with(' ')) field.remove_suffix(1);
    if (field.starts_with('+')) field.remove_prefix(1);
    Number number{};
    const auto parsed = std::from_chars(field.data(), field.data() + field.size(), number);
    if (parsed.ec != std::errc() || parsed.ptr != field.data() + field.size()) good_ = false;
    return number;
  }

  /// The text of a length and the comma behind it.
  std::string_view Take_Text(std::size_t length) {
    if (length > rest_.size()) {
      good_ = false;
      length = rest_.size();
    }
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (rest_.starts_with(',')) {
      rest_.remove_prefix(1);
    } else if (!rest_.empty()) {
      good_ = false;
    }
    return text;
  }

  [[nodiscard]] bool Good() const { return good_; }

 private:
  std::string_view rest_;
  bool good_ = true;
};

std::string Without_Filling(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

void Take_Rays(Fields& fields, int count, std::vector<MeasuredRay>& rays) {
  if (count < 0 || count > kMostRays) return;
  rays.resize(static_cast<std::size_t>(count));
  for (MeasuredRay& ray : rays) ray.image_id = fields.Take<std::int32_t>();
  for (MeasuredRay& ray : rays) ray.col = fields.Take<double>();
  for (MeasuredRay& ray : rays) ray.row = fields.Take<double>();
}

}  // namespace

MeasuredLine Measured_Line_Of(std::string_view line) {
  MeasuredLine measured;
  measured.text = line;
  Fields fields(line);
  measured.number = fields.Take<int>();
  measured.at = {fields.Take<double>(), fields.Take<double>(), fields.Take<double>()};
  measured.dem_z = fields.Take<double>();
  measured.rmse_um = fields.Take<double>();
  measured.species = fields.Take<int>();
  measured.free_integer = fields.Take<int>();
  const int rays = fields.Take<int>();
  measured.comment = Without_Filling(fields.Take_Text(kCommentLength));
  Take_Rays(fields, rays, measured.rays);
  measured.readable = fields.Good() && rays >= 0 && rays <= kMostRays;
  return measured;
}

std::vector<MeasuredLine> Measured_Lines_Of(std::string_view content) {
  std::vector<MeasuredLine> lines;
  while (!content.empty()) {
    const std::size_t length = std::min(content.find('\n'), content.size());
    std::string_view line = content.substr(0, length);
    content.remove_prefix(std::min(length + 1, content.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.find_first_not_of(" \t") != std::string_view::npos) {
      lines.push_back(Measured_Line_Of(line));
    }
  }
  return lines;
}

}  // namespace sylvomex
