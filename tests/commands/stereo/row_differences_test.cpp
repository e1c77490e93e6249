// SPDX-License-Identifier: MIT
// Whether both normalised rasters show a point on the same row: bright spots are drawn into two
// photographs where the cameras see points on the ground and above it, the pair is made by script,
// and the spots' centres of gravity are compared in the rasters.
#include <cmath>
#include <ostream>

#include "platform/list_reader.h"
#include "stereo/normal_plane.h"
#include "stereo_site.h"

namespace sylvomex {
namespace {

constexpr int kSide = 800;     // pixels of a photograph
constexpr int kReach = 7;      // of a spot, pixels
constexpr double kSpot = 1.5;  // its standard deviation, pixels
constexpr double kStart = 165;

struct BaseAndAngles {
  Point3D base;  // metres; 40 % of the 800 m that a photograph shows
  double left[3], right[3];

  friend std::ostream& operator<<(std::ostream& out, const BaseAndAngles& flight) {
    return out << "base " << flight.base.X << ' ' << flight.base.Y << ' ' << flight.base.Z;
  }
};

SmallImage Photograph_At(int id, const Point3D& centre, const double (&angles)[3]) {
  return {.id = id,
          .width = kSide,
          .height = kSide,
          .colour = 0,
          .full_width = kSide,
          .full_height = kSide,
          .a1 = 10000,
          .a0 = kSide / 2.0,
          .b2 = 10000,
          .b0 = kSide / 2.0,
          .omega = angles[0],
          .phi = angles[1],
          .kappa = angles[2],
          .X0 = 1000 + centre.X,
          .Y0 = 2000 + centre.Y,
          .Z0 = 1000 + kStart + centre.Z};
}

Camera Camera_Of_Image(const SmallImage& image) {
  ImageRecord record;
  record.PrincipalDistance = image.c;
  record.AffineA1 = image.a1;
  record.AffineA0 = image.a0;
  record.AffineB2 = image.b2;
  record.AffineB0 = image.b0;
  record.Omega = image.omega;
  record.Phi = image.phi;
  record.Kappa = image.kappa;
  record.X0 = image.X0;
  record.Y0 = image.Y0;
  record.Z0 = image.Z0;
  return Make_Camera(record);
}

/// Between the photographs, on the ground, a tree's height and a slope's height above it.
std::vector<Point3D> Points_Below(const Point3D& base) {
  std::vector<Point3D> points;
  for (double x = -100; x <= 100; x += 50) {
    for (double y = -200; y <= 200; y += 50) {
      const double height = 30.0 * (points.size() % 4);
      points.push_back({1000 + base.X / 2 + x, 2000 + base.Y / 2 + y, kStart + height});
    }
  }
  return points;
}

std::string Spots(const SmallImage& image, const std::vector<Point3D>& points) {
  std::vector<double> light(kSide * kSide, 20.0);
  const Camera camera = Camera_Of_Image(image);
  for (const Point3D& point : points) {
    const PixelPosition at = Object_To_Pixel(camera, point);
    const double raw_row = kSide - 1 - at.row;
    for (int row = static_cast<int>(raw_row) - kReach; row <= raw_row + kReach; ++row) {
      for (int col = static_cast<int>(at.col) - kReach; col <= at.col + kReach; ++col) {
        if (row < 0 || col < 0 || row >= kSide || col >= kSide) continue;
        const double away = std::hypot(row - raw_row, col - at.col) / kSpot;
        light[static_cast<std::size_t>(kSide * row + col)] += 220 * std::exp(-away * away / 2);
      }
    }
  }
  std::string bytes;
  for (const double value : light) bytes += static_cast<char>(std::lround(std::min(value, 255.0)));
  return bytes;
}

/// Centre of gravity of what is brighter than the ground about a raster position; nothing where no
/// spot lies wholly inside.
std::optional<double> Row_Of_Spot(const std::string& raster, const StereoPair& pair,
                                  const RasterPosition& about) {
  const int row0 = static_cast<int>(std::lround(about.row));
  const int col0 = static_cast<int>(std::lround(about.col));
  double weight = 0, rows = 0;
  for (int row = row0 - kReach; row <= row0 + kReach; ++row) {
    for (int col = col0 - kReach; col <= col0 + kReach; ++col) {
      if (row < 0 || col < 0 || row >= pair.NormalHeight || col >= pair.NormalWidth) return {};
      const auto pixel = static_cast<std::size_t>(row) * pair.NormalWidth + col;
      const double light = static_cast<unsigned char>(raster[pixel]);
      weight += std::max(0.0, light - 25);
      rows += row * std::max(0.0, light - 25);
    }
  }
  if (weight < 1000) return {};
  return rows / weight;
}

class RowDifferences : public testing::TestWithParam<BaseAndAngles> {
 protected:
  void Write_Photograph(const std::string& name, const SmallImage& image,
                        const std::vector<Point3D>& points) {
    site.Write_Image(name, image);
    site.Folder().Write("c/data/" + name + ".raw", Spots(image, points));
  }

  SmallSite site;
};

TEST_P(RowDifferences, AreBelowAQuarterOfAPixel) {
  const BaseAndAngles& flight = GetParam();
  const std::vector<Point3D> points = Points_Below(flight.base);
  Write_Photograph("l", Photograph_At(11, {0, 0, 0}, flight.left), points);
  Write_Photograph("r", Photograph_At(12, flight.base, flight.right), points);
  const PlayedSession played = Play_Script(
      site.Folder(),
      "file c:\\data\\l.hdr\nmenu Add_images_to_set\nfile c:\\data\\r.hdr\n"
      "menu Add_images_to_set\ninput 100\nbutton ok\ninput c:\\data\\\ninput c:\\data\\PAIR.TXT\n"
      "menu Create_anaglyph_pair\n");
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  ListReader reader(site.Folder().File("c/data/PAIR.TXT"));
  const StereoPair pair = Read_Pair_File(reader);
  const std::string left = site.Folder().Read("c/data/11test_left.raw");
  const std::string right = site.Folder().Read("c/data/12test_right.raw");
  double squares = 0, largest = 0;
  int count = 0;
  for (const Point3D& point : points) {
    const auto in_left =
        Row_Of_Spot(left, pair, Normal_To_Raster(pair, Object_To_Normal(pair.left, point)));
    const auto in_right =
        Row_Of_Spot(right, pair, Normal_To_Raster(pair, Object_To_Normal(pair.right, point)));
    if (!in_left || !in_right) continue;
    const double difference = *in_right - *in_left;
    squares += difference * difference;
    largest = std::max(largest, std::abs(difference));
    ++count;
  }
  ASSERT_GE(count, 30);
  EXPECT_LT(std::sqrt(squares / count), 0.25);
  EXPECT_LT(largest, 0.6);
}

constexpr double kFive = 0.0873;  // radians

INSTANTIATE_TEST_SUITE_P(
    SixtyPercentOverlap, RowDifferences,
    testing::Values(BaseAndAngles{{320, -25, -6}, {kFive, -0.05, kFive}, {-kFive, kFive, -0.06}},
                    BaseAndAngles{{320, 25, -6}, {-0.03, kFive, -kFive}, {kFive, -kFive, 0.04}},
                    BaseAndAngles{{320, -25, 6}, {0.02, 0.01, -0.04}, {-0.05, kFive, kFive}},
                    BaseAndAngles{{-320, -25, 6}, {kFive, 0.03, 0.02}, {0.04, -kFive, -kFive}},
                    BaseAndAngles{{320, 0, 0}, {0, 0, 0}, {0, 0, 0}}));

}  // namespace
}  // namespace sylvomex
