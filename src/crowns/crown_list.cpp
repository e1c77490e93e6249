// SPDX-License-Identifier: MIT
#include "crowns/crown_list.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/many_steps.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr double kUpperShare = 0.4;  // of the crown's length
constexpr double kEmptySlotX = 1.0;  // slots without an echo lie at 0, 0 or near it
constexpr double kCellSize = 2;      // metres

bool Is_Inside(const LidarEcho& echo, const ListedCrown& crown) {
  const double dX = echo.X - crown.X;
  const double dY = echo.Y - crown.Y;
  return std::sqrt(dX * dX + dY * dY) < crown.Width / 2 &&
         crown.TopZ - echo.Z < kUpperShare * (crown.TopZ - crown.BaseZ);
}

class CommaLine {
 public:
  void Add(double value, const char* pattern) { text_ += Format(value, pattern) + ","; }
  void Add_Lengths(std::initializer_list<double> values) {
    for (const double value : values) Add(value, "0.00");
  }
  void Add_Wholes(std::initializer_list<double> values) {
    for (const double value : values) Add(value, "0");
  }
  [[nodiscard]] std::string Ended() && { return std::move(text_) + "\n"; }

 private:
  std::string text_;
};

}  // namespace

ListedCrown Read_Listed_Crown(ListReader& file) {
  ListedCrown crown;
  crown.X = file.Read_Double();
  crown.Y = file.Read_Double();
  crown.TopZ = file.Read_Double();
  crown.BaseZ = file.Read_Double();
  crown.Code = file.Read_Byte();
  crown.Width = file.Read_Double();
  return crown;
}

SlotsInside Slots_Inside(const LidarPulse& pulse, const ListedCrown& crown) {
  SlotsInside inside;
  for (int slot = 1; slot <= kEchoSlots; ++slot) {
    if (Is_Inside(pulse.Slot(slot), crown)) {
      inside.slot[static_cast<std::size_t>(inside.count++)] = slot;
    }
  }
  return inside;
}

std::string Hit_Line(const ListedCrown& crown, const LidarPulse& pulse, const SlotsInside& inside) {
  CommaLine line;
  line.Add_Lengths({crown.X, crown.Y, crown.TopZ, crown.BaseZ});
  line.Add_Wholes(
      {static_cast<double>(crown.Code), crown.Width, static_cast<double>(pulse.EchoCount)});
  line.Add_Lengths({pulse.PulseValue, pulse.SensorX, pulse.SensorY, pulse.SensorZ});
  for (const int byte : {int{pulse.PulseCode}, int{pulse.PulseByteA}, int{pulse.Gain},
                         int{pulse.PulseByteB}, int{pulse.PulseByteC}}) {
    line.Add(byte, "0");
  }
  for (const LidarEcho& echo : pulse.Echo) line.Add(echo.Intensity, "0");
  line.Add(inside.count, "0");
  for (int i = 0; i < inside.count; ++i) {
    const LidarEcho& echo = pulse.Slot(inside.slot[static_cast<std::size_t>(i)]);
    line.Add_Lengths({echo.X, echo.Y, echo.Z});
    line.Add(echo.Intensity, "0");
    line.Add(echo.Range, "0.00");
  }
  return std::move(line).Ended();
}

PulsePlaces::PulsePlaces(const PulseTable& pulses) : pulse_count_(pulses.Count()) {
  std::vector<double> X, Y;
  ManySteps steps(static_cast<double>(kEchoSlots) * pulses.Count());
  for (int slot = 1; slot <= kEchoSlots; ++slot) {
    for (std::int32_t i = 0; i < pulses.Count(); ++i) {
      steps.Step();
      const double east = pulses.X(slot)[static_cast<std::size_t>(i)];
      if (!(east > kEmptySlotX)) continue;
      X.push_back(east);
      Y.push_back(pulses.Y(slot)[static_cast<std::size_t>(i)]);
      pulse_of_place_.push_back(i + 1);
    }
  }
  grid_ = PlaceGrid(X, Y, kCellSize);
}

void PulsePlaces::Near(const ListedCrown& crown, std::vector<std::int32_t>& pulses) {
  if (crown.X - crown.Width / 2 <= kEmptySlotX) {
    pulses.resize(static_cast<std::size_t>(pulse_count_));
    std::iota(pulses.begin(), pulses.end(), 1);
    return;
  }
  grid_.Near(crown.X, crown.Y, crown.Width / 2, places_);
  pulses.clear();
  for (const std::int32_t place : places_) {
    pulses.push_back(pulse_of_place_[static_cast<std::size_t>(place)]);
  }
  std::ranges::sort(pulses);
  pulses.erase(std::unique(pulses.begin(), pulses.end()), pulses.end());
}

}  // namespace sylvomex
