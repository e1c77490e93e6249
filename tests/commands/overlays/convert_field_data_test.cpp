// SPDX-License-Identifier: MIT
// The conversion of field data by script.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

const char* const kConvert =
    "file c:\\data\\plot.txt\nfile c:\\data\\plot.bin\ncommand ConvertFieldDataToBinary\n";

struct Conversion : testing::Test {
  SmallSite site;

  PlayedSession Convert(const std::string& plot, const std::string& before = "") {
    site.Folder().Write("c/data/plot.txt", plot);
    return Play_Script(site.Folder(), before + kConvert);
  }
  std::string Bytes() { return site.Folder().Read("c/data/plot.bin"); }
  double Double_At(std::size_t offset) {
    double value = 0;
    std::memcpy(&value, Bytes().data() + offset, sizeof value);
    return value;
  }
  std::int32_t Int_At(std::size_t offset) {
    std::int32_t value = 0;
    std::memcpy(&value, Bytes().data() + offset, sizeof value);
    return value;
  }
  // A ground model of 2 x 2 cells of 100 m from the origin, 7 m high.
  std::string Load_Ground() {
    std::string cells;
    for (int i = 0; i < 4; ++i) {
      const float height = 7;
      cells.append(reinterpret_cast<const char*>(&height), sizeof height);
    }
    site.Folder().Write("c/data/dem.raw", cells);
    site.Folder().Write("c/data/dem.hdr", "2\n2\n0\n0\n100\n-99\nc:\\data\\dem.raw\n");
    return "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n";
  }
};

TEST_F(Conversion, AsksForBothFilesAndCountsTheTrees) {
  const PlayedSession played = Convert("0,0,0,0,0,0,0\n1,2,3,200,15,1,1,0\n1,2,3,200,15,2,2,0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript,
            "file title=\"File which has Plot-Border data!\" filter=\"3D-data files "
            "(*.txt)|*.txt\" folder=\"\" -> \"c:\\data\\plot.txt\"\n"
            "file title=\"File to be outputted in Binary\" filter=\"Tree data files "
            "(*.bin)|*.bin\" folder=\"\" -> \"c:\\data\\plot.bin\"\n"
            "message \"2 trees\" title=\"\" buttons=ok -> ok\n");
  EXPECT_EQ(Bytes().size(), 60U + 2 * 76);
}

TEST_F(Conversion, WritesPositionHeightsAndVolumeOfEachTree) {
  Convert("90,10,20,100,1,2,3\n5,0,0.5,200,15,7,2,-4\n", Load_Ground());
  EXPECT_EQ(Int_At(0), 1);
  EXPECT_NEAR(Double_At(4), 1.5707963267949, 1e-12);
  const double header[] = {10, 20, 100, 1, 2, 3};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(Double_At(12 + 8 * i), header[i]);
  // Rotated by 90 degrees, (5, 0) is (0, 5).
  EXPECT_NEAR(Double_At(60), 0 + 10 + 1, 1e-9);
  EXPECT_NEAR(Double_At(68), 5 + 20 + 2, 1e-9);
  EXPECT_EQ(Double_At(76), 118.5);
  EXPECT_EQ(Double_At(84), 103.5);
  EXPECT_EQ(Double_At(92), 7);
  EXPECT_EQ(Double_At(100), 200);
  EXPECT_EQ(Double_At(108), 15);
  EXPECT_EQ(Int_At(116), 7);
  EXPECT_EQ(Int_At(120), 2);
  EXPECT_EQ(Int_At(124), -4);
  const double spruce =
      std::exp(std::log(0.022927) + 1.91505 * std::log(20) + 20 * std::log(0.99146) +
               2.82541 * std::log(15) - 1.53547 * std::log(13.7));
  EXPECT_NEAR(Double_At(128), spruce, 1e-9 * spruce);
}

TEST_F(Conversion, WithoutAModelTheGroundIsMinus99) {
  Convert("0,0,0,0,0,0,0\n1,2,3,200,15,1,1,0\n");
  EXPECT_EQ(Double_At(60 + 32), -99);
}

TEST_F(Conversion, ATreeOfBreastHeightEndsTheCommandAndKeepsTheTreesBefore) {
  site.Folder().Write("c/data/plot.bin", std::string(1000, 'x'));
  const PlayedSession played =
      Convert("0,0,0,0,0,0,0\n1,2,3,200,15,1,1,0\n1,2,3,200,1.3,2,1,0\n1,2,3,200,15,3,1,0\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_NE(played.transcript.find(
                "error ConvertFieldDataToBinary \"Overflow: c:\\data\\plot.txt, line 3, item 20: "
                "no stem volume for a height of 1.3 m and a diameter of 200 mm\"\n"),
            std::string::npos)
      << played.transcript;
  EXPECT_EQ(played.transcript.find("trees\""), std::string::npos);
  EXPECT_EQ(Bytes().size(), 60U + 76);
  EXPECT_EQ(Int_At(0), 3);
}

TEST_F(Conversion, ADiameterWithoutAVolumeIsNamedByItsOwnItem) {
  for (const char* diameter : {"-200", "1E+308"}) {
    const PlayedSession played = Convert("0,0,0,0,0,0,0\n1,2,3,200,15,1,1,0\n1,2,3," +
                                         std::string(diameter) + ",15,2,1,0\n");
    EXPECT_EQ(played.status, 2);
    EXPECT_NE(played.transcript.find("error ConvertFieldDataToBinary \"Overflow: "
                                     "c:\\data\\plot.txt, line 3, item 19: no stem volume for a "
                                     "height of 15 m and a diameter of "),
              std::string::npos)
        << played.transcript;
  }
}

TEST_F(Conversion, AHeightWithoutAVolumeIsNamedByItsOwnItem) {
  const PlayedSession played = Convert("0,0,0,0,0,0,0\n1,2,3,200,1E+200,1,1,0\n");
  EXPECT_NE(played.transcript.find("plot.txt, line 2, item 12: no stem volume"), std::string::npos)
      << played.transcript;
}

TEST_F(Conversion, AMalformedRowFailsBeforeTheOutputFileIsAskedFor) {
  site.Folder().Write("c/data/plot.txt", "0,0,0,0,0,0,0\n1,2,3,200,15,1,1\n");
  const PlayedSession played =
      Play_Script(site.Folder(), "file c:\\data\\plot.txt\ncommand ConvertFieldDataToBinary\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_NE(played.transcript.find("Input past end of file: c:\\data\\plot.txt, line 3, item 15"),
            std::string::npos)
      << played.transcript;
  EXPECT_FALSE(site.Folder().Has("c/data/plot.bin"));
}

TEST_F(Conversion, WithoutTreesOnlyTheHeaderIsWritten) {
  const PlayedSession played = Convert("0,0,0,0,0,0,0\n");
  EXPECT_NE(played.transcript.find("message \"0 trees\""), std::string::npos);
  EXPECT_EQ(Bytes().size(), 60U);
}

TEST_F(Conversion, DismissedDialogsEndQuietlyAndWriteNothing) {
  site.Folder().Write("c/data/plot.txt", "0,0,0,0,0,0,0\n");
  for (const char* answers : {"cancel\n", "file c:\\data\\plot.txt\ncancel\n"}) {
    const PlayedSession played =
        Play_Script(site.Folder(), std::string(answers) + "command ConvertFieldDataToBinary\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_EQ(played.transcript.find("message"), std::string::npos);
  }
  EXPECT_FALSE(site.Folder().Has("c/data/plot.bin"));
}

TEST_F(Conversion, UnwritableFilesAreErrors) {
  site.Folder().Write("c/data/plot.txt", "0,0,0,0,0,0,0\n");
  const PlayedSession played = Play_Script(site.Folder(),
                                           "file c:\\data\\plot.txt\nfile c:\\none\\plot.bin\n"
                                           "command ConvertFieldDataToBinary\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_NE(played.transcript.find("Path not found: c:\\none\\plot.bin"), std::string::npos)
      << played.transcript;
}

TEST_F(Conversion, TheMenuItemStaysGreyed) {
  const PlayedSession played = Play_Script(site.Folder(), "try menu ConvertFieldDataToBinary\n");
  EXPECT_NE(played.transcript.find("greyed ConvertFieldDataToBinary"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
