// SPDX-License-Identifier: MIT
// Direction of the sun from date, time and place.
#pragma once

#include <optional>
#include <string_view>

namespace sylvomex {

/// Julian day of a UTC instant in ISO 8601: "2003-10-17T12:30:30-07:00", with Z, an offset or
/// neither (then it is UTC), fractions of a second allowed. std::nullopt for anything else.
std::optional<double> Julian_Day(std::string_view utc);

struct SunDirection {
  double azimuth = 0;    // radians clockwise from true north, 0 to 2 pi
  double elevation = 0;  // radians above the horizon, without refraction
};

/// Meeus (1998), Astronomical Algorithms, chapters 12, 13, 22 and 25 (low accuracy, 0.01 degree for
/// 1900 to 2100). Degrees, longitude positive east.
SunDirection Sun_Direction(double julian_day, double latitude, double longitude);

/// Apparent right ascension and declination, radians; the first half of Sun_Direction.
struct SunEquatorial {
  double right_ascension = 0, declination = 0;
};
SunEquatorial Sun_Equatorial(double julian_day);

}  // namespace sylvomex
