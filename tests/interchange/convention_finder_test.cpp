// SPDX-License-Identifier: MIT
#include "interchange/convention_finder.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "interchange/failures.h"
#include "support/photo_site.h"

namespace sylvomex {
namespace {

/// Observations of the sample points in the sample photographs, by their own formula.
std::string Observations(double shift = 0, std::size_t points = 99, std::size_t photos = 99) {
  std::ostringstream text;
  text.precision(12);
  text << "photo,point,col_px,row_px,remark\n";
  const auto all = Sample_Points();
  for (std::size_t i = 0; i < Sample_Photos().size() && i < photos; ++i) {
    for (std::size_t p = 0; p < all.size() && p < points; ++p) {
      const auto [col, row] = Sample_Photos()[i].Pixel(all[p]);
      text << "photo" << i + 1 << ".tif,p" << p << ',' << col + shift << ',' << row + shift
           << ",x\n";
    }
  }
  return text.str();
}

std::string Points() {
  std::ostringstream text;
  text.precision(12);
  text << "point,X,Y,Z\n";
  const auto all = Sample_Points();
  for (std::size_t p = 0; p < all.size(); ++p) {
    text << 'p' << p << ',' << all[p].X << ',' << all[p].Y << ',' << all[p].Z << '\n';
  }
  return text.str();
}

ConventionSearch Search(const std::vector<TablePhoto>& photos, const std::string& observations,
                        const std::string& points) {
  const auto table = Parse_Orientation_Table({Plain_Table(photos), "t.csv"}, {}, "");
  return Find_Convention(table, Parse_Observations({observations, "o.csv"}, table),
                         Parse_Known_Points({points, "p.csv"}));
}

TEST(FindConvention, ATableThatFitsIsTakenAsStated) {
  const auto search = Search(Sample_Photos(), Observations(), Points());
  EXPECT_EQ(search.verdict, FinderVerdict::FitsAsStated);
  EXPECT_EQ(search.chosen, Convention{});
  EXPECT_LT(search.fits.front().rms, 1e-6);
  EXPECT_EQ(search.observations, 36U);
}

TEST(FindConvention, TheRmsIsThatOfTheDistances) {
  // Every pixel is off by 0.3 in both directions: sqrt(2 * 0.09).
  const auto search = Search(Sample_Photos(), Observations(0.3), Points());
  EXPECT_NEAR(search.stated_rms, std::sqrt(0.18), 1e-6);
}

TEST(FindConvention, FindsGon) {
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) {
    p.omega /= 0.9;
    p.phi /= 0.9;
    p.kappa /= 0.9;
  }
  const auto search = Search(photos, Observations(), Points());
  EXPECT_EQ(search.verdict, FinderVerdict::ClearlyAnother);
  ASSERT_TRUE(search.chosen.has_value());
  EXPECT_EQ(search.chosen->unit, AngleUnit::Gon);
  EXPECT_LT(search.fits.front().rms, 1e-5);
}

TEST(FindConvention, FindsRadiansSignsAndQuarterTurns) {
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) {
    p.omega *= std::numbers::pi / 180;
    p.phi *= -std::numbers::pi / 180;
    p.kappa = (p.kappa - 90) * std::numbers::pi / 180;
  }
  const auto search = Search(photos, Observations(), Points());
  ASSERT_TRUE(search.chosen.has_value());
  EXPECT_EQ(search.chosen->unit, AngleUnit::Radians);
  EXPECT_LT(search.fits.front().rms, 1e-5);
}

TEST(FindConvention, FindsTheOtherDirectionOfTheRotation) {
  // The angles of the transposed matrix: its third row is the third column of M.
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) {
    const auto m = p.Matrix();
    const double degree = std::numbers::pi / 180;
    p.omega = std::atan2(-m[1][2], m[2][2]) / degree;
    p.phi = std::asin(m[0][2]) / degree;
    p.kappa = std::atan2(-m[0][1], m[0][0]) / degree;
  }
  const auto search = Search(photos, Observations(), Points());
  ASSERT_TRUE(search.chosen.has_value());
  EXPECT_TRUE(search.chosen->image_to_ground);
  EXPECT_LT(search.fits.front().rms, 1e-5);
}

TEST(FindConvention, FindsTheSignOfThePrincipalPoint) {
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) p.x0_mm = -p.x0_mm;
  const auto search = Search(photos, Observations(), Points());
  ASSERT_TRUE(search.chosen.has_value());
  EXPECT_TRUE(search.chosen->pp_x_negative);
}

TEST(FindConvention, FindsAPrincipalPointFromTheCorner) {
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) {  // 200 + 4 px right and 150 + 7 px down
    p.x0_mm = 20.4;
    p.y0_mm = 15.7;
  }
  const auto search = Search(photos, Observations(), Points());
  ASSERT_TRUE(search.chosen.has_value());
  EXPECT_TRUE(search.chosen->pp_from_corner);
}

TEST(FindConvention, PixelMiddlesAreLikeCornersAndTheStatedOneIsTaken) {
  const auto search = Search(Sample_Photos(), Observations(-0.5), Points());
  EXPECT_EQ(search.verdict, FinderVerdict::FitsAsStated);
  EXPECT_TRUE(search.fits.front().convention.pixel_centres);
  EXPECT_EQ(search.fits.front().group, 0);
  EXPECT_EQ(search.chosen, Convention{});
}

TEST(FindConvention, ATableOfOtherPhotographsFitsNothing) {
  auto photos = Sample_Photos();
  std::swap(photos[0].centre, photos[3].centre);
  photos[1].kappa += 77;
  const auto search = Search(photos, Observations(), Points());
  EXPECT_EQ(search.verdict, FinderVerdict::NoneFits);
  EXPECT_FALSE(search.chosen.has_value());
}

TEST(FindConvention, OnePointInOnePhotographDoesNotDecide) {
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) {  // near enough to zero that many conventions come close
    p.omega = p.phi = 0;
    p.kappa = 0.8;
  }
  std::vector<TablePhoto> truth = photos;
  for (TablePhoto& p : truth) p.kappa = 0.4;
  const auto [col, row] = truth[0].Pixel(Sample_Points()[8]);
  const auto search = Search(photos,
                             "photo,point,col_px,row_px\nphoto1,p8," + std::to_string(col + 2) +
                                 "," + std::to_string(row + 2) + "\n",
                             Points());
  EXPECT_FALSE(search.verdict == FinderVerdict::ClearlyAnother);
}

TEST(FindConvention, TiePointsAloneAreIntersected) {
  const auto search = Search(Sample_Photos(), Observations(), "point,X,Y,Z\n");
  EXPECT_EQ(search.verdict, FinderVerdict::FitsAsStated);
  EXPECT_LT(search.stated_rms, 1e-4);
  auto photos = Sample_Photos();
  for (TablePhoto& p : photos) p.kappa = -p.kappa;
  const auto other = Search(photos, Observations(), "point,X,Y,Z\n");
  ASSERT_TRUE(other.chosen.has_value());
  EXPECT_LT(other.fits.front().rms, 1e-4);
}

TEST(FindConvention, RefusesObservationsThatDoNotCount) {
  EXPECT_THROW(Search(Sample_Photos(), Observations(0, 9, 1), "point,X,Y,Z\n"), Refused);
  EXPECT_THROW(Search(Sample_Photos(), "photo,point,col_px,row_px\n", Points()), Refused);
  EXPECT_THROW(Search(Sample_Photos(), "photo,point,col_px,row_px\nother,p1,1,2\n", Points()),
               Refused);
  EXPECT_THROW(Search(Sample_Photos(), Observations(), "point,X,Y\n"), Refused);
  EXPECT_THROW(Search(Sample_Photos(), Observations(), "point,X,Y,Z\na,1,2,3\na,1,2,3\n"), Refused);
}

TEST(PlausibleConventions, HaveNamesOfTheirOwnAndStartWithTheStated) {
  const auto table = Parse_Orientation_Table({Plain_Table(Sample_Photos()), "t.csv"}, {}, "");
  const auto conventions = Plausible_Conventions(table.stated, table.photos);
  EXPECT_EQ(conventions.front(), table.stated);
  std::set<std::string> names;
  for (const Convention& convention : conventions) {
    names.insert(Convention_Name(convention, RotationGiven::Angles));
  }
  EXPECT_EQ(names.size(), conventions.size());
}

}  // namespace
}  // namespace sylvomex
