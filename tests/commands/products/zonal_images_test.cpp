// SPDX-License-Identifier: MIT
// Create_Zonal around points of a plane at Z = 0, where a pixel is 0.1 m: column 500 + 10 X, row
// 500 + 10 Y from the bottom.
#include "products_fixture.h"

namespace sylvomex {
namespace {

class ZonalCommand : public ProductsTest {
 protected:
  ZonalCommand() {
    site.Write_Image("a", SmallImage());
    site.Folder().Make_Folder("d");
  }

  PlayedSession Play_Zonal(const std::string& lines) const {
    site.Folder().Write("c/data/circles.txt", lines);
    return Play(Load({"a"}) + "file c:\\data\\circles.txt\ntry command Create_Zonal\n" +
                "print Solution3D\nprint SolutionValid\n");
  }

  [[nodiscard]] std::string Mask() const { return site.Folder().Read("d/1_Zonal.raw"); }
};

TEST_F(ZonalCommand, IsGreyedInTheMenu) {
  const PlayedSession played = Play("try menu Create_Zonal\n");
  EXPECT_TRUE(Has(played, "greyed Create_Zonal")) << played.transcript;
}

TEST_F(ZonalCommand, MarksThePixelsWithinTheRadius) {
  const PlayedSession played = Play_Zonal("0,0,0,7,1.05\n");
  EXPECT_TRUE(Has(played,
                  "file title=\"File with X,Y,Z, id, radius\" filter=\"TXT files (*.txt)|*.txt\" "
                  "folder=\"\" -> \"c:\\data\\circles.txt\"\n"
                  "message \"Luin 1 koealan tiedot!\" title=\"\" buttons=ok -> ok\n"
                  "message \"Done\" title=\"\" buttons=ok -> ok\n"))
      << played.transcript;
  // The area begins at the centre and goes 50 pixels beyond it.
  const std::string mask = Mask();
  ASSERT_EQ(mask.size(), 51u * 51);
  for (int row = 0; row < 51; ++row) {
    for (int col = 0; col < 51; ++col) {
      const bool inside = col * col + row * row <= 110;  // 10.5 squared is 110.25
      EXPECT_EQ(mask[static_cast<std::size_t>(row) * 51 + col], inside ? 7 : 0);
    }
  }
}

TEST_F(ZonalCommand, TheAreaSpansAllCentresAndRowsCountFromTheBottom) {
  // Columns 490 to 520 and rows 500 to 510, with 50 beyond: 81 x 61.
  Play_Zonal("-1,0,0,1,0.05\n2,1,0,2,0.05\n");
  const std::string mask = Mask();
  ASSERT_EQ(mask.size(), 81u * 61);
  EXPECT_EQ(mask[0], 1);
  EXPECT_EQ(mask[10 * 81 + 30], 2);
}

TEST_F(ZonalCommand, TheLaterOfTwoCirclesWins) {
  Play_Zonal("0,0,0,1,2\n1,0,0,2,0.55\n");
  const std::string mask = Mask();  // columns 500 to 560
  EXPECT_EQ(mask[0], 1);
  EXPECT_EQ(mask[4], 1);
  EXPECT_EQ(mask[5], 2);
  EXPECT_EQ(mask[15], 2);
  EXPECT_EQ(mask[16], 1);
}

TEST_F(ZonalCommand, EachCircleLiesAtItsOwnHeight) {
  // At Z = 500 a pixel is 0.05 m: a radius of 1.02 m is 20 pixels.
  Play_Zonal("0,0,500,3,1.02\n");
  const std::string mask = Mask();
  EXPECT_EQ(mask[20], 3);
  EXPECT_EQ(mask[21], 0);
}

TEST_F(ZonalCommand, TheLastCircleBecomesTheSolution) {
  const PlayedSession played = Play_Zonal("0,0,0,1,1\n1,2,3,2,1\n");
  EXPECT_TRUE(Has(played, "Solution3D = 1 2 3\nSolutionValid = -1\n")) << played.transcript;
}

TEST_F(ZonalCommand, EachImageGetsItsMask) {
  SmallImage second;
  second.id = 22;
  second.X0 = 3;
  site.Write_Image("b", second);
  site.Folder().Write("c/data/circles.txt", "0,0,0,1,1\n");
  const PlayedSession played =
      Play(Load({"a", "b"}) + "file c:\\data\\circles.txt\ncommand Create_Zonal\n");
  EXPECT_TRUE(site.Folder().Has("d/1_Zonal.raw"));
  EXPECT_TRUE(site.Folder().Has("d/22_Zonal.raw"));
  EXPECT_EQ(played.transcript.find("\"Done\""), played.transcript.rfind("\"Done\""));
}

TEST_F(ZonalCommand, WithoutAnImageSaysSoAfterReading) {
  site.Folder().Write("c/data/circles.txt", "0,0,0,1,1\n0,0,0,1,1\n");
  const PlayedSession played =
      Play("file c:\\data\\circles.txt\ncommand Create_Zonal\nprint SolutionValid\n");
  EXPECT_TRUE(Has(played,
                  "message \"Luin 2 koealan tiedot!\" title=\"\" buttons=ok -> ok\n"
                  "message \"There has to be an image, one at least!\""))
      << played.transcript;
  EXPECT_TRUE(Has(played, "SolutionValid = 0\n"));
}

TEST_F(ZonalCommand, AThousandCirclesAreRead) {
  std::string lines;
  for (int k = 0; k < 1001; ++k) lines += std::to_string(k == 1000 ? 5 : 0) + ",0,0,1,0.05\n";
  const PlayedSession played = Play_Zonal(lines);
  EXPECT_TRUE(Has(played, "\"Luin 1000 koealan tiedot!\"")) << played.transcript;
  EXPECT_EQ(Mask().size(), 51u * 51);
}

TEST_F(ZonalCommand, NoCircleIsNoMask) {
  const PlayedSession played = Play_Zonal("\n");
  EXPECT_TRUE(Has(played, "\"Luin 0 koealan tiedot!\"")) << played.transcript;
  EXPECT_FALSE(site.Folder().Has("d/1_Zonal.raw"));
}

TEST_F(ZonalCommand, BadLinesAreToldWithTheirPlaceAndLeaveTheSolution) {
  const char* const bad[][2] = {
      {"0,0,0,1,1\n0,0,0,1\n", "c:\\data\\circles.txt, line 2, item 5"},
      {"0,0,zero,1,1\n", "c:\\data\\circles.txt, line 1, item 3"},
      {"0,0,0,256,1\n", "Overflow: c:\\data\\circles.txt, line 1, item 4"},
  };
  for (const auto& [lines, cause] : bad) {
    const PlayedSession played = Play_Zonal(lines);
    EXPECT_TRUE(Has(played, cause)) << played.transcript;
    EXPECT_TRUE(Has(played, "SolutionValid = 0\n"));
  }
}

TEST_F(ZonalCommand, CirclesTooFarApartAreOneFailure) {
  const PlayedSession played = Play_Zonal("0,0,0,1,1\n1e9,1e9,0,1,1\n");
  EXPECT_TRUE(Has(played, "error Create_Zonal \"")) << played.transcript;
  EXPECT_TRUE(Has(played, "SolutionValid = 0\n"));
}

TEST_F(ZonalCommand, AMissingDriveIsNamedAndLeavesTheNewSolution) {
  std::filesystem::remove(site.Folder().Path() / "d");
  const PlayedSession played = Play_Zonal("0,0,0,1,1\n1,2,3,2,1\n");
  EXPECT_TRUE(Has(played, "error Create_Zonal \"Path not found: d:\\1_Zonal.raw\""))
      << played.transcript;
  EXPECT_TRUE(Has(played, "Solution3D = 1 2 3\nSolutionValid = -1\n")) << played.transcript;
}

}  // namespace
}  // namespace sylvomex
