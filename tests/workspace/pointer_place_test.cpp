// SPDX-License-Identifier: MIT
// The place under the pointer over one vertical photograph: full-image col and row 500 lie below
// the camera at (0, 0), a pixel is 0.1 m at Z = 0 and 0.08 m at Z = 200.
#include "services/pointer_place.h"

#include "state/workspace.h"
#include "support/one_image_fixture.h"

namespace sylvomex {
namespace {

class PlaceUnderPointer : public OneImage {
 protected:
  /// The place under a full-image position.
  std::optional<PointerPlace> At(double col, double row) {
    const PanePosition at = Full_Image_To_Pane(w().ImageBlock(0), w().PaneViews(0), col, row);
    return Place_Under_Pointer(w(), 0, at.px, at.py);
  }

  /// A ground of one height around the origin, 41 x 41 cells of 10 m.
  static void Fill(RasterModel& model, float height) {
    model.NCols = model.NRows = 41;
    model.OriginX = model.OriginY = -200;
    model.CellSize = 10;
    Dimension_Cells(model);
    for (std::size_t i = 0; i < 41 * 41; ++i) model.Cells[i] = height;
  }
};

TEST_F(PlaceUnderPointer, WithoutModelAndSolutionThereIsNone) { EXPECT_FALSE(At(600, 500)); }

TEST_F(PlaceUnderPointer, TheSolutionGivesTheHeight) {
  w().SolutionValid = true;
  w().Solution3D = {7, 8, 200};
  const auto place = At(600, 550);
  ASSERT_TRUE(place);
  EXPECT_FALSE(place->on_ground);
  EXPECT_NEAR(place->point.X, 8, 1e-9);  // 100 pixels of 0.08 m
  EXPECT_NEAR(place->point.Y, 4, 1e-9);
  EXPECT_EQ(place->point.Z, 200);
  EXPECT_NEAR(place->pixel, 0.08, 1e-12);
  EXPECT_FALSE(place->ground);
}

TEST_F(PlaceUnderPointer, TheElevationModelGoesBeforeTheSolution) {
  w().SolutionValid = true;
  w().Solution3D = {0, 0, 200};
  Fill(w().RasterDem, 100);
  w().RasterDemLoaded = true;
  Fill(w().RasterChm, 120);
  const auto place = At(600, 500);
  ASSERT_TRUE(place);
  EXPECT_TRUE(place->on_ground);
  EXPECT_NEAR(place->point.X, 9, 0.001);  // 100 pixels of 0.09 m
  EXPECT_NEAR(place->point.Z, 100, 0.001);
  EXPECT_EQ(place->ground, 100);
  EXPECT_EQ(place->canopy, 120);
}

TEST_F(PlaceUnderPointer, OutsideTheModelTheSolutionServes) {
  Fill(w().RasterDem, 100);
  w().RasterDem.OriginX = 5000;
  w().RasterDemLoaded = true;
  EXPECT_FALSE(At(600, 500));
  w().SolutionValid = true;
  const auto place = At(600, 500);
  ASSERT_TRUE(place);
  EXPECT_FALSE(place->on_ground);
}

TEST_F(PlaceUnderPointer, APaneWithoutAnImageHasNone) {
  w().SolutionValid = true;
  EXPECT_FALSE(Place_Under_Pointer(w(), 1, 5, 5));
}

TEST(PlaceWords, UnitsAndHeightAboveTheGroundAreTold) {
  const PointerPlace place{{2515057.504, 6860179.2, 175.316}, true, 175.316, 192.1, 0.121};
  const std::vector<std::string> words = Place_Words(place);
  EXPECT_EQ(words.front(),
            "X 2515057.50  Y 6860179.20  Z 175.32 m on the ground   ground 175.32 m   canopy "
            "192.10 m, 16.78 m above ground   pixel 0.12 m");
  EXPECT_EQ(words.back(), "X 2515058  Y 6860179  Z 175 m");
}

TEST(PlaceWords, EveryWordingIsShorterThanTheOneBefore) {
  const PointerPlace place{{2515057.504, 6860179.2, 175.316}, false, {}, {}, 0.121};
  const std::vector<std::string> words = Place_Words(place);
  for (std::size_t i = 1; i < words.size(); ++i) EXPECT_LT(words[i].size(), words[i - 1].size());
}

}  // namespace
}  // namespace sylvomex
