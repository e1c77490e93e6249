// SPDX-License-Identifier: MIT
#include "interchange/las_writer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace sylvomex {
namespace {

constexpr std::size_t kHeaderBytes = 375, kPointBytes = 30, kFlushBytes = 1 << 20;
constexpr double kUnit = 0.001;         // metres
constexpr double kOffsetStep = 100000;  // metres

template <class Value>
void Put(std::vector<std::uint8_t>& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

void Put_Text(std::vector<std::uint8_t>& bytes, std::size_t at, const std::string& text) {
  std::memcpy(bytes.data() + at, text.data(), text.size());
}

std::vector<std::uint8_t> Wkt_Record(const std::string& wkt) {
  std::vector<std::uint8_t> bytes(54 + wkt.size() + 1);
  Put_Text(bytes, 2, "LASF_Projection");
  Put(bytes, 18, std::uint16_t{2112});
  Put(bytes, 20, static_cast<std::uint16_t>(wkt.size() + 1));
  Put_Text(bytes, 54, wkt);
  return bytes;
}

}  // namespace

LasWriter::LasWriter(const std::filesystem::path& path, const std::string& name,
                     const std::string& wkt)
    : file_(path, name), start_(Wkt_Record(wkt)) {}

void LasWriter::Add(const WrittenPoint& point) {
  const Point3D& at = point.at;
  if (count_ == 0) {
    offset_ = {std::floor(at.X / kOffsetStep) * kOffsetStep,
               std::floor(at.Y / kOffsetStep) * kOffsetStep, 0};
    least_ = greatest_ = at;
  }
  least_ = {std::min(least_.X, at.X), std::min(least_.Y, at.Y), std::min(least_.Z, at.Z)};
  greatest_ = {std::max(greatest_.X, at.X), std::max(greatest_.Y, at.Y),
               std::max(greatest_.Z, at.Z)};
  const std::size_t begin = bytes_.size();
  bytes_.resize(begin + kPointBytes);
  const auto number = [](double coordinate, double offset) {
    return static_cast<std::int32_t>(std::llround((coordinate - offset) / kUnit));
  };
  Put(bytes_, begin, number(at.X, offset_.X));
  Put(bytes_, begin + 4, number(at.Y, offset_.Y));
  Put(bytes_, begin + 8, number(at.Z, offset_.Z));
  Put(bytes_, begin + 12, point.intensity);
  Put(bytes_, begin + 14, static_cast<std::uint8_t>(point.number + 16 * point.returns));
  Put(bytes_, begin + 16, point.classification);
  Put(bytes_, begin + 18, point.angle);
  Put(bytes_, begin + 20, point.line);
  Put(bytes_, begin + 22, point.time);
  if (point.number >= 1) ++by_return_[static_cast<std::size_t>(point.number - 1)];
  ++count_;
  if (bytes_.size() >= kFlushBytes) Flush();
}

void LasWriter::Flush() {
  file_.Write_At(kHeaderBytes + start_.size() + written_, bytes_);
  written_ += bytes_.size();
  bytes_.clear();
}

void LasWriter::Finish() {
  Flush();
  file_.Write_At(kHeaderBytes, start_);
  file_.Write_At(0, Header());
  file_.Close();
}

std::vector<std::uint8_t> LasWriter::Header() const {
  std::vector<std::uint8_t> h(kHeaderBytes);
  Put_Text(h, 0, "LASF");
  Put(h, 6, std::uint16_t{16});  // the system is told as WKT
  h[24] = 1;
  h[25] = 4;
  Put_Text(h, 26, "EXTRACTION");
  Put_Text(h, 58, "sylvomex-site");
  Put(h, 94, static_cast<std::uint16_t>(kHeaderBytes));
  Put(h, 96, static_cast<std::uint32_t>(kHeaderBytes + start_.size()));
  Put(h, 100, std::uint32_t{1});
  h[104] = 6;
  Put(h, 105, static_cast<std::uint16_t>(kPointBytes));
  const double offsets[] = {offset_.X, offset_.Y, offset_.Z};
  const double limits[] = {greatest_.X, least_.X, greatest_.Y, least_.Y, greatest_.Z, least_.Z};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    Put(h, 131 + 8 * axis, kUnit);
    Put(h, 155 + 8 * axis, offsets[axis]);
  }
  std::memcpy(h.data() + 179, limits, sizeof limits);
  Put(h, 247, count_);
  std::memcpy(h.data() + 255, by_return_.data(), sizeof by_return_);
  return h;
}

}  // namespace sylvomex
