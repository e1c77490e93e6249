// SPDX-License-Identifier: MIT
#include "demo/write/surface_session.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "demo/render/ray_caster.h"
#include "demo/scene/delaunay.h"
#include "demo/scene/surface_photographs.h"
#include "demo/table/residual_table.h"
#include "demo/write/heath_session.h"
#include "demo/write/image_files.h"
#include "demo/write/mesh_files.h"
#include "demo/write/session_steps.h"
#include "demo/write/tin_session.h"
#include "support/session_run.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const Scene& One_Tree() {
  static const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  return scene;
}

TEST(WholeImages, KeepTheRayOfEveryRawPixel) {
  const std::vector<Photograph> photos = Fly_Over(One_Tree());
  const std::vector<Photograph> whole = Whole_Image_Photographs(photos);
  ASSERT_EQ(whole.size(), 3U);
  for (std::size_t k = 0; k < 3; ++k) {
    const ImageRecord& image = whole[k].image;
    EXPECT_EQ(image.SubColOrigin, 0);
    EXPECT_EQ(image.FullWidth, image.SubWidth);
    EXPECT_EQ(image.FullHeight, image.SubHeight);
    const auto frame_pixel = Centre_Of_Raw_Pixel(photos[k].image, 700, 1200);
    const auto whole_pixel = Centre_Of_Raw_Pixel(image, 700, 1200);
    const Ray a = Ray_Through_Pixel(photos[k], frame_pixel.col, frame_pixel.row);
    const Ray b = Ray_Through_Pixel(whole[k], whole_pixel.col, whole_pixel.row);
    EXPECT_NEAR(a.u, b.u, 1e-12);
    EXPECT_NEAR(a.v, b.v, 1e-12);
  }
}

TEST(HeathImages, HaveRoomForSearchesOf30MetresAtEveryPlace) {
  constexpr double kHalfWindow = 10;  // pixels, more than any window's half
  for (const Photograph& photo : Heath_Photographs(Fly_Over(Build_Scene({})))) {
    for (const double x : {kHeathWest, kHeathEast}) {
      for (const double y : {kHeathSouth, kHeathNorth}) {
        for (const double Z : {120.0, 200.0}) {
          const auto pixel = Object_To_Pixel(photo.camera, {kForestWest + x, kForestSouth + y, Z});
          EXPECT_TRUE(Is_On_Raw_File(photo.image, pixel.col - kHalfWindow, pixel.row));
          EXPECT_TRUE(Is_On_Raw_File(photo.image, pixel.col + kHalfWindow, pixel.row));
        }
      }
    }
  }
}

TEST(Heath, LiesInTheSun) {
  const Scene scene = Build_Scene({});
  int shading_tree = -1;
  for (double x = kHeathWest; x <= kHeathEast; x += 4) {
    for (double y = kHeathSouth; y <= kHeathNorth; y += 4) {
      const Point3D point = Ground_Point(scene, x, y);
      EXPECT_FALSE(Is_In_Shadow(scene, point.X, point.Y, point.Z, -1, shading_tree))
          << x << " " << y;
    }
  }
}

/// Whether a tree's crown lies between a photograph and a point.
bool Stands_Before(const Tree& tree, const Photograph& photo, const Point3D& point) {
  const ImageRecord& image = photo.image;
  const double drop = image.Z0 - point.Z;
  const Ray ray{
      image.X0, image.Y0, image.Z0, (point.X - image.X0) / drop, (point.Y - image.Y0) / drop, -1};
  return Intersect_Crown(tree, ray, 0, drop).has_value();
}

TEST(GroundPlaces, LieWhereEveryPhotographSeesGround) {
  const std::vector<Photograph> photos = Whole_Image_Photographs(Fly_Over(One_Tree()));
  const auto places = Ground_Places(One_Tree(), photos, 1, {140, 140, 160, 160}, 1);
  // 21 x 21 places but those that the crown of 2.5 m hides from one of them.
  EXPECT_LT(places.size(), 441U - 20U);
  EXPECT_GT(places.size(), 200U);
  for (const SurfacePlace& place : places) {
    EXPECT_EQ(place.truth.Z, 150);
    for (const Photograph& photo : photos)
      EXPECT_FALSE(Stands_Before(One_Tree().trees[0], photo, place.truth));
    const auto ground = Image_To_Object_At_Z(photos[1].camera, 150, place.film);
    ASSERT_TRUE(ground);
    EXPECT_NEAR(ground->X, place.truth.X, 1e-6);
    EXPECT_NEAR(ground->Y, place.truth.Y, 1e-6);
  }
}

TEST(CrownPlaces, AreTheTopsThatAllPhotographsShow) {
  const std::vector<Photograph> photos = Whole_Image_Photographs(Fly_Over(One_Tree()));
  const auto places = Crown_Places(One_Tree(), photos, 0);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0].truth.Z, 170);
  EXPECT_TRUE(Crown_Places(Scene_Of({Tree_At(1, Species::Birch, 10, 150)}), photos, 0).empty());
}

TEST(PlaceSteps, TellKindAndTruthAndStartAtAMultipleOfFiveMetres) {
  EXPECT_EQ(
      Place_Steps("pair, heath", 0, "Get_Surface_Height", {{{0.001, -0.02}, {10, 20, 152.25}}}),
      "\nsay \"pair, heath 152.250\"\ninput 10.00\ninput 20.00\ninput 150.00\n"
      "menu Set_3D_solution\nset Text1(0) 0.00100000\nset Text1(1) -0.02000000\n"
      "menu Get_Surface_Height\nprint ObservationRecord.Rmse\nprint Solution3D\n");
}

/// The photographs' headers with raw files that are all black and take no room on the disk.
void Write_Black_Photographs(const TemporaryFolder& folder, const std::vector<Photograph>& photos) {
  folder.Make_Folder("c/data/demo");
  for (const Photograph& photo : photos) {
    Write_Photograph(photo, {}, folder.Drives());
    const auto bytes =
        static_cast<std::uintmax_t>(3 * photo.image.SubWidth * photo.image.SubHeight);
    std::filesystem::resize_file(folder.Drives().Locate(photo.image.RawFileName.Trimmed()).native,
                                 bytes);
  }
}

/// The drawn polygon's corners on the ground against the area's.
void Expect_Polygon_On_Area(const Scene& scene, const std::vector<Photograph>& photos,
                            const PolygonPane& pane, const MapArea& area, double tolerance) {
  const TemporaryFolder folder;
  Write_Black_Photographs(folder, photos);
  const Point3D middle =
      Ground_Point(scene, (area.west + area.east) / 2, (area.south + area.north) / 2);
  const PlayedSession played =
      Play_Script(folder, Add_Image_Steps(photos) + Centre_Steps(middle) +
                              Polygon_Steps(scene, photos, pane, middle, area));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  std::istringstream lines(folder.Read("c/data/IMA_polyline.txt"));
  std::vector<FilmPosition> drawn;
  FilmPosition vertex;
  for (char comma = 0; lines >> vertex.x >> comma >> vertex.y;) drawn.push_back(vertex);
  ASSERT_EQ(drawn.size(), 4U);
  const double xs[] = {area.west, area.east, area.east, area.west};
  const double ys[] = {area.north, area.north, area.south, area.south};
  for (std::size_t k = 0; k < 4; ++k) {
    const Point3D truth = Ground_Point(scene, xs[k], ys[k]);
    const auto ground = Image_To_Object_At_Z(photos[static_cast<std::size_t>(pane.image)].camera,
                                             truth.Z, drawn[k]);
    ASSERT_TRUE(ground);
    EXPECT_NEAR(ground->X, truth.X, tolerance) << k;
    EXPECT_NEAR(ground->Y, truth.Y, tolerance) << k;
  }
}

TEST(PolygonSteps, DrawTheAreaInAPaneThatIsZoomedOut) {
  const Scene scene = Build_Scene({});
  const std::vector<Photograph> heath = Heath_Photographs(Fly_Over(scene));
  // A click to a tenth of a pane pixel at 1:4 lies within 0.2 pixels of 0.1 m; the solution to 1 cm
  // may move the centre by another pixel.
  Expect_Polygon_On_Area(scene, heath, {0, "Zoom1_4", 4}, kHeathPairArea, 0.2);
  Expect_Polygon_On_Area(scene, heath, {1, "Zoom_1_2", 2}, kHeathTripletArea, 0.2);
}

TEST(HeathSession, TakesTheOuterPhotographAsTheFixedOneInTheEnd) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const std::string session = Heath_Points_Session(scene, Heath_Photographs(Fly_Over(scene)));
  const std::size_t removed = session.find("menu Remove_an_image");
  ASSERT_NE(removed, std::string::npos);
  const std::string rest = session.substr(removed);
  EXPECT_LT(rest.find("heath2.hdr"), rest.find("heath1.hdr"));
  EXPECT_LT(rest.find("heath1.hdr"), rest.find("heath3.hdr"));
  EXPECT_NE(rest.find("say \"triplet, outer fixed, heath 150.000\""), std::string::npos);
}

TEST(ComparedSurfaces, HoldTrueHeightsEveryTwoMetresOfTheirPolygons) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const auto surfaces = Compared_Surfaces(scene);
  ASSERT_EQ(surfaces.size(), 3U);
  EXPECT_EQ(surfaces[0].truth.size(), 76U * 58U);  // 150 by 114 m
  EXPECT_EQ(surfaces[1].truth.size(), 31U * 31U);
  EXPECT_EQ(surfaces[1].truth[0].Z, 150);
  // The canopy's grid meets the tree's axis in its middle.
  EXPECT_EQ(surfaces[2].truth[15 * 31 + 15].Z, 170);
  EXPECT_EQ(True_Point_List({"x", {{1, 2, 3}}}), "1.00 2.00 3.000\n");
}

double Plane(double X, double Y) {
  return 150 + 0.1 * (X - kForestWest) - 0.05 * (Y - kForestSouth);
}

TEST(TinSession, ComparesTheTriangulationWithTheTruth) {
  // Nodes and true points every 10 m; those points beyond the nodes have no line.
  std::vector<MeshNode> nodes;
  ComparedSurface surface{"plane", {}};
  for (int k = 0; k < 121; ++k) {
    const double X = kForestWest + 10 * (k % 11), Y = kForestSouth + 10 * (k / 11);
    nodes.push_back({X, Y, Plane(X, Y)});
    surface.truth.push_back({X - 27, Y + 2, Plane(X - 27, Y + 2)});
  }
  const TemporaryFolder folder;
  const SurfaceMesh mesh = Triangulate(nodes);
  folder.Write("c/temp/plane.nod", Node_Text(mesh));
  folder.Write("c/temp/plane.tri", Triangle_Text(mesh));
  folder.Write("c/data/demo/plane_truth.txt", True_Point_List(surface));
  const PlayedSession played = Play_Script(folder, Tin_Session(surface));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const auto compared = Read_Compared_Points(folder.Drives().Locate("c:\\data\\dem_tin_res.txt"));
  EXPECT_EQ(compared.size(), 8U * 10U);  // X from 3 to 73 m, Y from 2 to 92 m
  for (const ComparedPoint& point : compared) EXPECT_NEAR(point.tin, point.Z, 0.011);
}

}  // namespace
}  // namespace sylvomex::demo
