// SPDX-License-Identifier: MIT
// Selection and value of the echoes that the intensity overlays draw.
#pragma once

#include <functional>
#include <vector>

#include "lidar/pulse_table.h"
#include "platform/point3d.h"

namespace sylvomex {

/// The ends of a colour scale. A value above the upper end is set slightly below it.
struct ValueScale {
  double lowest = 0;
  double highest = 0;

  [[nodiscard]] double Below_Top(double value) const {
    return value > highest ? highest - 0.02 : value;
  }
  [[nodiscard]] double Inside(double value) const {
    return value < lowest ? lowest : Below_Top(value);
  }
};

inline constexpr ValueScale kScale2006{2, 250};
inline constexpr ValueScale kScale2007{30, 120};

struct SelectedEcho {
  Point3D at;
  double value = 0;  // corrected intensity inside the scale
};

using GroundHeight = std::function<double(double X, double Y)>;

/// Intensity as if it had been measured at the campaign's usual range: 840 m in 2006 with the
/// exponent 2.3, 780 m in 2007 with the exponent 2.5 and a term of the receiver's gain. Power
/// law of the range: Hoefle and Pfeifer (2007), ISPRS Journal of Photogrammetry and Remote
/// Sensing 62. Rounded to a 16-bit integer, ties to even; RunTimeError(Overflow) when it does
/// not fit or is NaN.
int Corrected_Intensity_2006(double intensity, double range);
int Corrected_Intensity_2007(double intensity, double range, double gain);

/// Appends the echoes nearer than 150 m to (Xs, Ys), in the order of pulses and slots. An
/// intensity that cannot be corrected is a RunTimeError(Overflow) naming pulse and slot, whether
/// or not the echo is drawn; echoes is then complete up to that slot.
///
/// 2006: those of pulses whose sensor is above 1000 m.
void Select_Echoes_2006(const PulseTable& pulses, double Xs, double Ys,
                        std::vector<SelectedEcho>& echoes);

/// 2007: those of single-echo pulses more than 6 m above the ground.
void Select_Echoes_2007(const PulseTable& pulses, double Xs, double Ys, const GroundHeight& ground,
                        std::vector<SelectedEcho>& echoes);

}  // namespace sylvomex
