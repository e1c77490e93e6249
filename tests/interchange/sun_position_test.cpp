// SPDX-License-Identifier: MIT
#include "interchange/sun_position.h"

#include <gtest/gtest.h>

#include <numbers>

namespace sylvomex {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

TEST(JulianDay, FollowsPublishedDates) {
  // Meeus, Astronomical Algorithms, chapter 7.
  EXPECT_DOUBLE_EQ(Julian_Day("2000-01-01T12:00:00Z").value(), 2451545.0);
  EXPECT_DOUBLE_EQ(Julian_Day("1987-01-27T00:00:00Z").value(), 2446822.5);
  EXPECT_DOUBLE_EQ(Julian_Day("1987-06-19T12:00Z").value(), 2446966.0);
  EXPECT_DOUBLE_EQ(Julian_Day("1900-01-01 00:00:00").value(), 2415020.5);
}

TEST(JulianDay, TakesOffsetsFromGreenwich) {
  const double noon = 2451545.0;
  EXPECT_DOUBLE_EQ(Julian_Day("2000-01-01T15:00:00+03:00").value(), noon);
  EXPECT_DOUBLE_EQ(Julian_Day("2000-01-01T05:00:00-0700").value(), noon);
  EXPECT_DOUBLE_EQ(Julian_Day("2000-01-01T14:00:00.000+02").value(), noon);
}

TEST(JulianDay, ReadsTheBasicFormAndCommas) {
  const double noon = 2451545.0;
  EXPECT_DOUBLE_EQ(Julian_Day("20000101T120000Z").value(), noon);
  EXPECT_DOUBLE_EQ(Julian_Day("20000101T1500+0300").value(), noon);
  EXPECT_DOUBLE_EQ(Julian_Day("2000-01-01T11:59:59,5Z").value(), noon - 0.5 / 86400);
  EXPECT_DOUBLE_EQ(Julian_Day("1999-12-31T24:00:00Z").value(), noon - 0.5);
}

TEST(JulianDay, KnowsTheLengthsOfTheMonths) {
  EXPECT_TRUE(Julian_Day("2024-02-29T12:00:00Z").has_value());
  for (const char* const text :
       {"2023-02-29T12:00:00Z", "1900-02-29T12:00:00Z", "2024-04-31T12:00:00Z",
        "2024-01-01T24:00:01Z", "20240230T1200Z"}) {
    EXPECT_FALSE(Julian_Day(text).has_value()) << text;
  }
}

TEST(JulianDay, IsNothingForOtherTexts) {
  for (const char* const text : {"", "yesterday", "2000-13-01T00:00:00Z", "2000-01-01",
                                 "2000-01-01T", "2000-01-01T12:00:00X", "2000-01-01T25:00:00Z"}) {
    EXPECT_FALSE(Julian_Day(text).has_value()) << text;
  }
}

TEST(SunEquatorial, FollowsThePublishedExample) {
  // Meeus, example 25.a: 1992 October 13 at 0 h dynamical time.
  const SunEquatorial sun = Sun_Equatorial(2448908.5);
  EXPECT_NEAR(sun.right_ascension / kDegree + 360, 198.38083, 0.0005);
  EXPECT_NEAR(sun.declination / kDegree, -7.78507, 0.0002);
}

TEST(SunDirection, FollowsThePublishedExampleOfReda) {
  // Reda and Andreas (2004), Solar position algorithm, table A5.1: 2003 October 17, 12:30:30 UTC-7,
  // latitude 39.742476, longitude -105.1786; topocentric elevation without refraction 39.872046,
  // azimuth 194.340241.
  const auto day = Julian_Day("2003-10-17T12:30:30-07:00");
  const SunDirection sun = Sun_Direction(*day, 39.742476, -105.1786);
  EXPECT_NEAR(sun.azimuth / kDegree, 194.340241, 0.01);
  EXPECT_NEAR(sun.elevation / kDegree, 39.872046, 0.01);
}

TEST(SunDirection, StandsOverTheTropicAtSolstice) {
  // 2024 June 20, 20:51 UTC: the sun's declination is the obliquity, 23.44; the equation of time
  // then is -1.7 minutes, so that the sun culminates at 180 - 15 (20.85 - 1.7 / 60) degrees.
  const SunDirection sun =
      Sun_Direction(*Julian_Day("2024-06-20T20:51:00Z"), 23.44, 180 - 15 * (20.85 - 1.7 / 60));
  EXPECT_GT(sun.elevation / kDegree, 89.8);
}

}  // namespace
}  // namespace sylvomex
