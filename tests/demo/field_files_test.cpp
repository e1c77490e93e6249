// SPDX-License-Identifier: MIT
#include "demo/write/field_files.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

#include "demo/render/stand_cameras.h"
#include "demo/write/camera_tables.h"
#include "demo/write/overlay_session.h"
#include "demo/write/truth.h"
#include "platform/list_reader.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

const std::vector<Photograph>& Photos() {
  static const std::vector<Photograph> photos = Fly_Over(Site());
  return photos;
}

const FieldPlot& Plot() {
  static const FieldPlot plot = Make_Field_Plot(Site(), Overlay_Tree(Site(), Photos()));
  return plot;
}

using Row = std::vector<double>;

/// All items as numbers, in rows of equal length.
std::vector<Row> Rows_Of(const std::string& text, std::size_t items) {
  ListReader list(text, "text");
  std::vector<Row> rows;
  while (!list.At_End()) {
    Row row;
    for (std::size_t i = 0; i < items; ++i) row.push_back(list.Read_Double());
    rows.push_back(row);
  }
  return rows;
}

const Tree& Tree_Of_Id(double id) { return Site().trees.at(static_cast<std::size_t>(id) - 1); }

TEST(FieldPlot, HoldsTheTreesWithinItsRadius) {
  std::size_t within = 0;
  for (const Tree& tree : Site().trees) {
    within += std::hypot(tree.X - Plot().X, tree.Y - Plot().Y) <= 25 ? 1 : 0;
  }
  EXPECT_EQ(Plot().trees.size(), within);
  EXPECT_GT(within, 15U);
}

TEST(FieldPlotText, GivesTheTrueTreesAfterRotationAndShift) {
  const std::string text = Field_Plot_Text(Site(), Plot());
  const std::size_t line_end = text.find('\n');
  const Row head = Rows_Of(text.substr(0, line_end), 7).at(0);
  const auto rows = Rows_Of(text.substr(line_end), 8);
  ASSERT_EQ(rows.size(), Plot().trees.size());
  const double a = head[0] * 0.0174532925199433;
  EXPECT_NE(head[0], 0);
  for (const Row& row : rows) {
    const Tree& tree = Tree_Of_Id(row[5]);
    EXPECT_NEAR(row[0] * std::cos(a) - row[1] * std::sin(a) + head[1] + head[4], tree.X, 0.002);
    EXPECT_NEAR(row[0] * std::sin(a) + row[1] * std::cos(a) + head[2] + head[5], tree.Y, 0.002);
    EXPECT_NEAR(head[3] + row[2] + head[6], tree.GroundZ, 0.001);
    EXPECT_NEAR(row[3], 2000 * tree.stem_radius, 0.006);
    EXPECT_NEAR(row[4], tree.Height(), 0.006);
    EXPECT_EQ(row[6], static_cast<int>(tree.species) + 1);
    EXPECT_EQ(row[7], tree.Height() >= 17 ? 1 : tree.Height() >= 13 ? 2 : 3);
  }
}

TEST(TreeList, FlagsTheTallTrees) {
  const auto rows = Rows_Of(Tree_List_Text(Site(), Plot()), 7);
  ASSERT_EQ(rows.size(), Plot().trees.size());
  std::set<double> flags;
  for (const Row& row : rows) {
    const Tree& tree = Tree_Of_Id(row[5]);
    EXPECT_NEAR(row[0], tree.X, 0.0051);
    EXPECT_NEAR(row[1], tree.Y, 0.0051);
    EXPECT_NEAR(row[4], tree.Height(), 0.0051);
    EXPECT_EQ(row[6], tree.Height() >= 13 ? 1 : 0);
    flags.insert(row[6]);
  }
  EXPECT_EQ(flags.size(), 2U);
}

TEST(Border, ClosesAroundThePlot) {
  const auto rows = Rows_Of(Border_Text(Plot()), 5);
  ASSERT_EQ(rows.size(), 24U);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i][0], static_cast<double>(i) + 1);
    EXPECT_NEAR(std::hypot(rows[i][1] - Plot().X, rows[i][2] - Plot().Y), 25, 0.01);
    EXPECT_EQ(rows[i][3], rows[(i + 1) % 24][1]);
    EXPECT_EQ(rows[i][4], rows[(i + 1) % 24][2]);
  }
}

TEST(GroundPolygon, ClosesOnTheGround) {
  const auto rows = Rows_Of(Ground_Polygon_Text(Site(), Plot()), 3);
  ASSERT_EQ(rows.size(), 13U);
  EXPECT_EQ(rows.front(), rows.back());
  for (const Row& row : rows) EXPECT_NEAR(row[2], Ground_Height(Site(), row[0], row[1]), 0.001);
}

TEST(Regression, HasEightItemsPerTree) {
  const auto rows = Rows_Of(Regression_Text(Site(), Photos(), Plot()), 8);
  ASSERT_EQ(rows.size(), Plot().trees.size());
  for (const Row& row : rows) {
    EXPECT_NEAR(row[3], Tree_Of_Id(row[0]).crown_radius, 0.0051);
    EXPECT_GE(row[7], 0);
    EXPECT_LE(row[7], 6);
  }
}

TEST(TiePoints, AreTheTopsOnThePhotographsByTopDownRows) {
  const std::string text = Tie_Point_Text(Site(), Photos(), Plot());
  EXPECT_EQ(text.find(','), std::string::npos);
  const auto rows = Rows_Of(text, 4);
  EXPECT_GT(rows.size(), 60U);
  for (const Row& row : rows) {
    for (const Photograph& photo : Photos()) {
      if (photo.image.ImageId != row[0]) continue;
      const Tree& tree = Tree_Of_Id(row[1]);
      const auto [col, bottom_up_row] = Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
      EXPECT_NEAR(row[2], col, 0.0051);
      EXPECT_NEAR(photo.image.FullHeight - 1 - row[3], bottom_up_row, 0.0051);
    }
  }
}

TEST(GroundPoints, LieOnTheGroundAllOverTheForest) {
  const auto rows = Rows_Of(Ground_Points_Text(Site()), 3);
  ASSERT_EQ(rows.size(), 400U);
  std::set<int> quarters;
  for (const Row& row : rows) {
    EXPECT_NEAR(row[2], Ground_Height(Site(), row[0], row[1]), 0.0051);
    quarters.insert((row[0] > kForestWest + 150 ? 1 : 0) + (row[1] > kForestSouth + 150 ? 2 : 0));
  }
  EXPECT_EQ(quarters.size(), 4U);
}

TEST(Transect, IsPairsEveryTwoMetres) {
  const auto rows = Rows_Of(Transect_Text(), 2);
  ASSERT_EQ(rows.size(), 131U);
  EXPECT_DOUBLE_EQ(rows[1][0] - rows[0][0], 2);
}

TEST(PlotLocation, HasEightItems) {
  const auto rows = Rows_Of(Plot_Location_Text(Plot()), 8);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_NEAR(rows[0][1], Plot().X, 0.0051);
  EXPECT_NEAR(rows[0][2], Plot().Y, 0.0051);
}

struct CameraLine {
  int id = 0;
  ImageRecord image;
  std::string header;
};

std::vector<CameraLine> Camera_Lines(const std::string& table) {
  ListReader list(table, "table");
  std::vector<CameraLine> lines;
  while (!list.At_End()) {
    CameraLine line;
    ImageRecord& image = line.image;
    line.id = list.Read_Int32();
    list.Read_Double();
    for (double* value : {&image.PrincipalDistance, &image.Omega, &image.Phi, &image.Kappa,
                          &image.X0, &image.Y0, &image.Z0}) {
      *value = list.Read_Double();
    }
    list.Read_Text_To_Comma();
    line.header = list.Read_Text_To_Comma();
    list.Read_Text_To_Comma();
    lines.push_back(line);
  }
  return lines;
}

bool Sees(const ImageRecord& image, const Point3D& point, double limit_x, double limit_y) {
  const auto [x, y] = Film_Of_Point(Make_Camera(image), point);
  return std::abs(x) < limit_x && std::abs(y) < limit_y;
}

TEST(AerialCameraTable, HasTheSitesPhotographsAndThreeThatDoNotShowTheForest) {
  const auto lines = Camera_Lines(Aerial_Camera_Table(Photos()));
  ASSERT_EQ(lines.size(), 9U);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (const double x : {0.0, kForestSide}) {
      for (const double y : {0.0, kForestSide}) {
        const Point3D corner{kForestWest + x, kForestSouth + y, 160};
        EXPECT_EQ(Sees(lines[i].image, corner, 0.115, 0.115), i < 6) << i;
      }
    }
    if (i >= 6) continue;
    EXPECT_EQ(lines[i].id, Photos()[i].image.ImageId);
    EXPECT_EQ(lines[i].header, Photos()[i].header_name);
    EXPECT_EQ(lines[i].image.Kappa, Photos()[i].image.Kappa);
  }
  EXPECT_GT(lines[7].image.PrincipalDistance, 0.204);
  EXPECT_LT(lines[7].image.PrincipalDistance, 0.205);
  EXPECT_GT(lines[8].image.PrincipalDistance, 0.104);
  EXPECT_LT(lines[8].image.PrincipalDistance, 0.106);
}

TEST(StandCameraTable, EndsWithACameraThatNoSearchConsiders) {
  const auto photos = Photographs_Around(Site(), Overlay_Tree(Site(), Photos()));
  const auto lines = Camera_Lines(Stand_Camera_Table(photos));
  ASSERT_EQ(lines.size(), photos.size() + 1);
  EXPECT_EQ(lines[0].header, "c:\\data\\demo\\terr1.hdr");
  EXPECT_EQ(lines[0].image.X0, photos[0].image.X0);
  EXPECT_GT(lines.back().image.PrincipalDistance, 0.008);
  EXPECT_TRUE(Stand_Camera_Table({}).empty());
}

}  // namespace
}  // namespace sylvomex::demo
