// SPDX-License-Identifier: MIT
#include "interchange/sun_position.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>

namespace sylvomex {
namespace {

using std::numbers::pi;

constexpr double kDegree = pi / 180;
constexpr double kEpoch2000 = 2451545.0;  // Julian day
constexpr double kCentury = 36525.0;      // days

/// Meeus, chapter 7, Gregorian calendar.
double Day_Of_Date(int year, int month, double day) {
  if (month <= 2) {
    --year;
    month += 12;
  }
  const int century = year / 100;
  const int leap = 2 - century + century / 4;
  return std::floor(365.25 * (year + 4716)) + std::floor(30.6001 * (month + 1)) + day + leap -
         1524.5;
}

/// Minutes east of Greenwich of "Z", "+03:00", "-0700" or nothing.
std::optional<int> Zone_Minutes(std::string_view zone) {
  if (zone.empty() || zone == "Z" || zone == "z") return 0;
  int hours = 0;
  int minutes = 0;
  int used = 0;
  const std::string text(zone.substr(1));
  const bool is_read = (zone[0] == '+' || zone[0] == '-') &&
                       ((std::sscanf(text.c_str(), "%2d:%2d%n", &hours, &minutes, &used) == 2) ||
                        (std::sscanf(text.c_str(), "%2d%2d%n", &hours, &minutes, &used) == 2) ||
                        (minutes = 0, std::sscanf(text.c_str(), "%2d%n", &hours, &used) == 1));
  if (!is_read || static_cast<std::size_t>(used) != text.size()) return std::nullopt;
  return (zone[0] == '-' ? -1 : 1) * (60 * hours + minutes);
}

/// The extended form of ISO 8601's basic form ("20240621T101530Z"), with points for commas.
std::string Extended(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  const auto digits_from = [&text](std::size_t position) {
    return std::min(text.find_first_not_of("0123456789", position), text.size()) - position;
  };
  constexpr std::size_t kTime = 11;  // behind the date and its T
  if (digits_from(0) != 8) return text;
  text.insert(6, "-").insert(4, "-");
  const std::size_t digits = text.size() > kTime ? digits_from(kTime) : 0;
  if (digits == 6) text.insert(kTime + 4, ":");
  if (digits == 6 || digits == 4) text.insert(kTime + 2, ":");
  return text;
}

bool Is_Date(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  return year >= 1800 && year <= 2200 && month > 0 && day > 0 && date.ok();
}

bool Is_Time(int hour, int minute, double second) {
  if (hour == 24) return minute == 0 && second == 0;
  return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 61;
}

}  // namespace

std::optional<double> Julian_Day(std::string_view utc) {
  const std::string text = Extended(std::string(utc));
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int used = 0;
  double second = 0;
  if (std::sscanf(text.c_str(), "%4d-%2d-%2d%*1[T ]%2d:%2d%n", &year, &month, &day, &hour, &minute,
                  &used) != 5) {
    return std::nullopt;
  }
  int more = 0;
  if (std::sscanf(text.c_str() + used, ":%lf%n", &second, &more) == 1) used += more;
  const auto zone = Zone_Minutes(std::string_view(text).substr(static_cast<std::size_t>(used)));
  if (!Is_Date(year, month, day) || !Is_Time(hour, minute, second) || !zone) return std::nullopt;
  return Day_Of_Date(year, month, day + (hour + (minute - *zone + second / 60) / 60) / 24);
}

SunEquatorial Sun_Equatorial(double julian_day) {
  const double T = (julian_day - kEpoch2000) / kCentury;
  const double L0 = 280.46646 + T * (36000.76983 + T * 0.0003032);
  const double M = (357.52911 + T * (35999.05029 - T * 0.0001537)) * kDegree;
  const double C = (1.914602 - T * (0.004817 + T * 0.000014)) * std::sin(M) +
                   (0.019993 - T * 0.000101) * std::sin(2 * M) + 0.000289 * std::sin(3 * M);
  const double node = (125.04 - 1934.136 * T) * kDegree;
  const double longitude = (L0 + C - 0.00569 - 0.00478 * std::sin(node)) * kDegree;
  const double mean = 23.4392911 - T * (46.8150 + T * (0.00059 - T * 0.001813)) / 3600;
  const double obliquity = (mean + 0.00256 * std::cos(node)) * kDegree;
  return {std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude)),
          std::asin(std::sin(obliquity) * std::sin(longitude))};
}

SunDirection Sun_Direction(double julian_day, double latitude, double longitude) {
  const double days = julian_day - kEpoch2000;
  const double T = days / kCentury;
  const double sidereal =
      280.46061837 + 360.98564736629 * days + T * T * (0.000387933 - T / 38710000);
  const SunEquatorial sun = Sun_Equatorial(julian_day);
  const double hour = (std::fmod(sidereal, 360) + longitude) * kDegree - sun.right_ascension;
  const double lat = latitude * kDegree;
  const double from_south = std::atan2(
      std::sin(hour), std::cos(hour) * std::sin(lat) - std::tan(sun.declination) * std::cos(lat));
  const double azimuth = std::fmod(from_south + 3 * pi, 2 * pi);
  return {azimuth, std::asin(std::sin(lat) * std::sin(sun.declination) +
                             std::cos(lat) * std::cos(sun.declination) * std::cos(hour))};
}

}  // namespace sylvomex
