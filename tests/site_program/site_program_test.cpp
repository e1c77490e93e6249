// SPDX-License-Identifier: MIT
#include "site_program/site_program.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "site_program/played_program.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(SiteProgram, InitIsDone) {
  const TemporaryFolder folder;
  const SitePlayed ran = Play_Site({"init", folder.Path().string(), "--crs", "EPSG:3067"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_TRUE(folder.Has("site.toml"));
}

TEST(SiteProgram, JsonMayStandAnywhereAndIsAlone) {
  for (int place = 0; place <= 4; ++place) {
    const TemporaryFolder folder;
    std::vector<std::string> words{"init", folder.Path().string(), "--crs", "EPSG:3067"};
    words.insert(words.begin() + place, "--json");
    const SitePlayed ran = Play_Site(words);
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(nlohmann::json::parse(ran.out)["crs"], "EPSG:3067");
  }
}

TEST(SiteProgram, ARefusalIsOneAndNamesTheFolder) {
  const TemporaryFolder folder;
  const SitePlayed ran = Play_Site({"report", folder.Path().string(), "--json"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find(folder.Path().string()), std::string::npos);
  EXPECT_TRUE(nlohmann::json::parse(ran.out).contains("error"));
}

TEST(SiteProgram, AWrongCommandLineIsTwo) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{},
        {"nothing"},
        {"import"},
        {"init"},
        {"init", "x"},
        {"import", "lidar", "x", "a.las"},
        {"import", "lidar", "x", "a.las", "--campaign", "2005"},
        {"import", "images", "x", "t.csv"},
        {"import", "images", "x", "t", "f", "--stretch", "2"},
        {"import", "images", "x", "t", "f", "--around", "1", "2", "3"},
        {"export", "x", "cakes", "a", "b"},
        {"report", "x", "--odd"}}) {
    const SitePlayed ran = Play_Site(words);
    EXPECT_EQ(ran.status, 2) << testing::PrintToString(words);
    EXPECT_NE(ran.err, "");
    EXPECT_EQ(ran.out, "");
  }
}

TEST(SiteProgram, HelpIsDone) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--help"}, {"import", "images", "-h"}}) {
    const SitePlayed ran = Play_Site(words);
    EXPECT_EQ(ran.status, 0);
    EXPECT_NE(ran.out.find("Usage:"), std::string::npos);
  }
}

TEST(SiteProgram, HelpAsJsonIsOneObject) {
  const SitePlayed ran = Play_Site({"init", "--help", "--json"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_NE(nlohmann::json::parse(ran.out)["help"].get<std::string>().find("--crs"),
            std::string::npos);
}

TEST(SiteProgram, PipesAndDevicesAreRefusedAtOnce) {
  const TemporaryFolder folder;
  const std::string site = (folder.Path() / "site").string();
  ASSERT_EQ(Play_Site({"init", site, "--crs", "EPSG:3067"}).status, 0);
  const std::string pipe = (folder.Path() / "zero").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string table =
      folder
          .Write("t.csv",
                 "name,width,height,f_mm,pixel_mm,x0_mm,y0_mm,omega,phi,kappa,X0,Y0,Z0\n"
                 "zero,4,3,1,1,0,0,0,0,0,385000,6672000,100\n")
          .native.string();
  for (const std::string& file : {pipe, std::string("/dev/zero")}) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"import", "dem", site, file},
          {"import", "tin", site, file},
          {"import", "lidar", site, file, "--campaign", "2007"},
          {"import", "trees", site, file, "--columns", "X=x,Y=y,TreeHeight=h"},
          {"import", "images", site, table, file}}) {
      const SitePlayed ran = Play_Site(words);
      EXPECT_EQ(ran.status, 1) << testing::PrintToString(words);
      EXPECT_NE(ran.err.find(file + ": the file cannot be read: it is not an ordinary file"),
                std::string::npos)
          << ran.err;
    }
  }
}

TEST(SiteProgram, ASystemThatIsNoneIsToldWithTheFileThatHoldsIt) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("site.toml", "crs = \"EPSG:99999\"\n").native.string();
  const SitePlayed ran = Play_Site({"report", folder.Path().string()});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find(file + ": \"EPSG:99999\" is no coordinate system"), std::string::npos)
      << ran.err;
}

TEST(SiteProgram, NegativeNumbersAreNumbers) {
  const TemporaryFolder folder;
  EXPECT_EQ(Play_Site({"import", "images", folder.Path().string(), "t.csv", "f.tif", "--around",
                       "-10.5", "-3", "-1e2", "50"})
                .status,
            1);
}

TEST(SiteProgram, AFormatThatThereIsNotIsAWrongCommandLine) {
  EXPECT_EQ(Play_Site({"import", "images", "site", "t.csv", "a.tif", "--format", "odd"}).status, 2);
}

}  // namespace
}  // namespace sylvomex
