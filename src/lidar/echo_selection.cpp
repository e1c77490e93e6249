// SPDX-License-Identifier: MIT
#include "lidar/echo_selection.h"

#include <cmath>
#include <string>

#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPulsesOfAStep = 65536;  // between two looks at the work
constexpr double kRadius = 150;                // metres
constexpr double kLowestSensor = 1000;         // metres
constexpr double kLowestEcho = 6;              // metres above the ground
constexpr double kUsualRange2006 = 840;        // metres
constexpr double kUsualRange2007 = 780;

double Range_Factor(double range, double usual, double exponent) {
  return std::pow(1 - (usual - range) / usual, exponent);
}

[[noreturn]] void Fail_At(std::size_t entry, int slot, const RunTimeError& error) {
  throw error.At("pulse " + std::to_string(entry + 1) + ", echo slot " + std::to_string(slot) +
                 ", corrected intensity");
}

// Echoes near the solution whose pulse is kept. intensity(entry, slot) is asked for every near
// echo, keep(entry, slot) after it.
template <class Intensity, class Keep>
void Select(const PulseTable& pulses, double Xs, double Ys, const ValueScale& scale,
            Intensity&& intensity, Keep&& keep, std::vector<SelectedEcho>& echoes) {
  const auto count = static_cast<std::size_t>(pulses.Count());
  WorkMeter meter(static_cast<double>(count) / kPulsesOfAStep);
  for (std::size_t entry = 0; entry < count; ++entry) {
    if (entry % kPulsesOfAStep == 0) meter.Step();
    for (int slot = 1; slot <= kEchoSlots; ++slot) {
      const double X = pulses.X(slot)[entry];
      const double Y = pulses.Y(slot)[entry];
      const double distance = std::sqrt((Y - Ys) * (Y - Ys) + (X - Xs) * (X - Xs));
      if (!(distance < kRadius)) continue;
      const double value = scale.Inside(intensity(entry, slot));
      if (keep(entry, slot)) echoes.push_back({{X, Y, pulses.Z(slot)[entry]}, value});
    }
  }
}

}  // namespace

int Corrected_Intensity_2006(double intensity, double range) {
  return To_Int16(Range_Factor(range, kUsualRange2006, 2.3) * intensity);
}

int Corrected_Intensity_2007(double intensity, double range, double gain) {
  return To_Int16(Range_Factor(range, kUsualRange2007, 2.5) * intensity +
                  (127.5 - gain) * (intensity * 0.045));
}

void Select_Echoes_2006(const PulseTable& pulses, double Xs, double Ys,
                        std::vector<SelectedEcho>& echoes) {
  const auto intensity = [&](std::size_t entry, int slot) {
    try {
      return Corrected_Intensity_2006(pulses.Intensity(slot)[entry], pulses.Range(slot)[entry]);
    } catch (const RunTimeError& error) {
      Fail_At(entry, slot, error);
    }
  };
  const auto keep = [&](std::size_t entry, int) { return pulses.SensorZ()[entry] > kLowestSensor; };
  Select(pulses, Xs, Ys, kScale2006, intensity, keep, echoes);
}

void Select_Echoes_2007(const PulseTable& pulses, double Xs, double Ys, const GroundHeight& ground,
                        std::vector<SelectedEcho>& echoes) {
  const auto intensity = [&](std::size_t entry, int slot) {
    try {
      return Corrected_Intensity_2007(pulses.Intensity(slot)[entry], pulses.Range(slot)[entry],
                                      pulses.Gain()[entry]);
    } catch (const RunTimeError& error) {
      Fail_At(entry, slot, error);
    }
  };
  const auto keep = [&](std::size_t entry, int slot) {
    if (pulses.EchoCount()[entry] != 1) return false;
    const double height =
        pulses.Z(slot)[entry] - ground(pulses.X(slot)[entry], pulses.Y(slot)[entry]);
    return height > kLowestEcho;
  };
  Select(pulses, Xs, Ys, kScale2007, intensity, keep, echoes);
}

}  // namespace sylvomex
