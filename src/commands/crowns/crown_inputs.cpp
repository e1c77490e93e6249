// SPDX-License-Identifier: MIT
#include "commands/crowns/crown_inputs.h"

#include "platform/work_meter.h"
#include "state/cause.h"
#include "state/workspace.h"

#include <array>
#include <cmath>
#include <string>

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/status_line.h"
#include "solver/heapsort.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr double kLeastEchoX = 1.0;  // a slot with a lesser X holds no echo
constexpr double kEchoesPerPulse = 1.5;
constexpr int kSamplePixels = 9;

void Require_Image(const Workspace& w, int image) {
  if (image < w.ImageCount) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "crowns are drawn and sampled in image " + std::to_string(image) +
                         ", counted from 0; the block has " + std::to_string(w.ImageCount));
}

std::string Place_Text(double X, double Y) { return Format(X, "0.00") + ", " + Format(Y, "0.00"); }

GroundedEcho Grounded(const Workspace& w, std::int32_t pulse, int slot, std::size_t entry) {
  const double X = w.LidarPulses.X(slot)[entry];
  const double Y = w.LidarPulses.Y(slot)[entry];
  const double Z = w.LidarPulses.Z(slot)[entry];
  const auto name = [&] {
    return "pulse " + std::to_string(pulse) + ", slot " + std::to_string(slot) + " at " +
           Place_Text(X, Y);
  };
  if (std::isnan(Z)) throw RunTimeError(Failure::BadContent, name() + " has no height");
  try {
    return {{static_cast<std::uint8_t>(slot), X, Y, To_Single(Z)}, Get_Raster_Elevation(w, X, Y)};
  } catch (const RunTimeError&) {
    Tell_Cause(w, name() + ", its height");
    throw;
  }
}

void Require_Room(std::size_t count, std::int32_t pulses, const GroundedEcho& echo,
                  std::int32_t pulse) {
  const std::int32_t bound = To_Int32(kEchoesPerPulse * pulses);
  if (count <= static_cast<std::size_t>(bound)) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "the list of echoes has room for 1.5 x " + std::to_string(pulses) + " = " +
                         std::to_string(bound) + "; pulse " + std::to_string(pulse) + " at " +
                         Place_Text(echo.point.X, echo.point.Y) + " brings one more");
}

}  // namespace

int Get_Species(const Workspace& w) {
  int species = 0;
  for (int i = 0; i < 4; ++i) {
    if (w.Form1.Check2(i).Value == 1) species = i + 1;
  }
  return species;
}

SeedColour Sample_Crown_Colour(const Workspace& w, int image, const Point3D& point) {
  Require_Image(w, image);
  const ImageRecord& record = w.ImageBlock(image);
  const PixelPosition pixel = Object_To_Pixel(w, image, point);
  const double col = Round_Half_Even(pixel.col - record.SubColOrigin);
  const double raw_row = Round_Half_Even((record.FullHeight - 1) - pixel.row - record.SubRowOrigin);
  const PositionalFile file(w.Drives.Locate(record.RawFileName.Padded()));
  const bool is_inside =
      col >= 1 && col <= record.SubWidth - 2 && raw_row >= 1 && raw_row <= record.SubHeight - 2;
  if (!is_inside) return {};
  std::array<double, 3> sums{};
  for (int down = -1; down <= 1; ++down) {
    std::array<std::uint8_t, 9> bytes{};
    const double first = 3 * ((raw_row + down) * record.SubWidth + col - 1);
    file.Read_At(static_cast<std::int64_t>(Round_Half_Even(first)), bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) sums[i % 3] += bytes[i];
  }
  return {sums[0] / kSamplePixels, sums[1] / kSamplePixels, sums[2] / kSamplePixels};
}

std::vector<GroundedEcho> Gather_Echoes(Workspace& w, const EchoFilter& is_inside) {
  std::vector<GroundedEcho> echoes;
  const std::int32_t pulses = w.LidarPulses.Count();
  WorkMeter meter(pulses);
  for (std::int32_t pulse = 1; pulse <= pulses; ++pulse) {
    meter.Step();
    const auto entry = static_cast<std::size_t>(pulse - 1);
    for (int slot = 1; slot <= kEchoSlots; ++slot) {
      const double X = w.LidarPulses.X(slot)[entry];
      if (!(X > kLeastEchoX) || !is_inside(X, w.LidarPulses.Y(slot)[entry])) continue;
      echoes.push_back(Grounded(w, pulse, slot, entry));
      Require_Room(echoes.size(), pulses, echoes.back(), pulse);
    }
  }
  w.LidarPoints.clear();
  w.LidarPoints.reserve(echoes.size());
  for (const GroundedEcho& echo : echoes) w.LidarPoints.push_back(echo.point);
  return echoes;
}

CrownEchoes Sort_Echoes(Workspace& w, std::vector<GroundedEcho> echoes) {
  Show_Status(w, "Sorting normalized heights...");
  std::vector<float> heights;
  heights.reserve(echoes.size());
  for (const GroundedEcho& echo : echoes) heights.push_back(echo.Normal_Height());
  std::vector<std::int32_t> order(echoes.size());
  Heapsort(static_cast<std::int32_t>(echoes.size()), heights, order,
           [&w](std::string_view text) { w.screen->Message_Box(text); });
  return {std::move(echoes), order};
}

}  // namespace sylvomex
