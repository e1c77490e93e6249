// SPDX-License-Identifier: MIT
// What the program imports, the workstation opens.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "interchange/site.h"
#include "platform/number_text.h"
#include "site_program/played_program.h"
#include "support/photo_site.h"
#include "support/session_run.h"

namespace sylvomex {
namespace {

class ImportedBlock : public testing::Test {
 protected:
  ImportedBlock() {
    Play_Site({"init", Site_Path(), "--crs", "EPSG:3067"});
    for (const TablePhoto& photo : photos_) {
      files_.push_back(Write_Tiff(source_, photo.name + ".tif", photo.width, photo.height, 3,
                                  GDT_Byte, Mixed_Values(photo.width, photo.height, 3)));
    }
  }

  std::string Site_Path() const { return site_.Path().string(); }

  std::vector<std::string> Import_Words(const std::string& table) const {
    std::vector<std::string> words{"import", "images", Site_Path(), table, "--json"};
    words.insert(words.end(), files_.begin(), files_.end());
    return words;
  }

  /// Observations of the sample points in all photographs.
  std::string Observations() {
    std::string text = "photo,point,col_px,row_px\n";
    for (const TablePhoto& photo : photos_) {
      for (std::size_t p = 0; p < Sample_Points().size(); ++p) {
        const auto [col, row] = photo.Pixel(Sample_Points()[p]);
        text += photo.name + "," + std::to_string(p) + "," + Full_Text(col) + "," + Full_Text(row) +
                "\n";
      }
    }
    return source_.Write("observations.csv", text).native.string();
  }

  std::string Points() {
    std::string text = "point,X,Y,Z\n";
    for (std::size_t p = 0; p < Sample_Points().size(); ++p) {
      const Point3D at = Sample_Points()[p];
      text += std::to_string(p) + "," + Full_Text(at.X) + "," + Full_Text(at.Y) + "," +
              Full_Text(at.Z) + "\n";
    }
    return source_.Write("points.csv", text).native.string();
  }

  /// The workstation's projections of the sample points against the table's formula.
  void Expect_Projections() {
    const WorldShift shift = *Open_Site(site_.Path()).shift;
    for (const TablePhoto& photo : photos_) {
      for (const Point3D& point : Sample_Points()) {
        const PlayedSession played = Play_Script(
            site_, "file c:\\data\\images\\" + photo.name + ".hdr\nmenu Add_images_to_set\ncall " +
                       "Object_To_Pixel 0 " + Full_Text(point.X - shift.X) + " " +
                       Full_Text(point.Y - shift.Y) + " " + Full_Text(point.Z) + "\n");
        ASSERT_EQ(played.status, 0) << played.reason;
        double col = 0;
        double row = 0;
        const std::size_t equals = played.transcript.rfind("= ");
        ASSERT_EQ(std::sscanf(played.transcript.c_str() + equals, "= %lf %lf", &col, &row), 2)
            << played.transcript;
        EXPECT_NEAR(col + 0.5, photo.Pixel(point)[0], 1e-6);
        EXPECT_NEAR(photo.height - 0.5 - row, photo.Pixel(point)[1], 1e-6);
      }
    }
  }

  std::vector<TablePhoto> photos_ = Sample_Photos();
  TemporaryFolder site_;
  TemporaryFolder source_;
  std::vector<std::string> files_;
};

TEST_F(ImportedBlock, ColumnThatMightTellAnotherConventionIsTold) {
  std::string frames = "Raster,PerspectiveX,PerspectiveY,PerspectiveZ,Omega,Phi,Kappa\n";
  for (const TablePhoto& p : photos_) {
    frames += p.name + ".tif," + Full_Text(p.centre.X) + "," + Full_Text(p.centre.Y) + "," +
              Full_Text(p.centre.Z) + "," + Full_Text(p.omega) + "," + Full_Text(p.phi) + "," +
              Full_Text(p.kappa) + "\n";
  }
  const std::string table = source_.Write("frames.csv", frames).native.string();
  std::vector<std::string> words = Import_Words(table);
  words.emplace_back("--cameras");
  words.push_back(source_
                      .Write("cameras.csv",
                             "FocalLength,PrincipalX,PrincipalY,PixelSize,NColumns,NRows,"
                             "FilmCoordinateSystem\n100000,400,-700,100,400,300,1\n")
                      .native.string());
  const SitePlayed played = Play_Site(words);
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.err,
            "sylvomex-site: " + table +
                ": FilmCoordinateSystem is passed over; check orientation tells whether "
                "the convention fits\n");
  Expect_Projections();
}

TEST_F(ImportedBlock, OpensInTheWorkstationAndProjectsAsTheTable) {
  photos_.resize(2);
  files_.resize(2);
  const std::string table = source_.Write("t.csv", Plain_Table(photos_)).native.string();
  const SitePlayed ran = Play_Site(Import_Words(table));
  ASSERT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(nlohmann::json::parse(ran.out)["images"].size(), 2U);
  Expect_Projections();
}

TEST_F(ImportedBlock, ShowsTheImportedPixels) {
  const std::string table = source_.Write("t.csv", Plain_Table(photos_)).native.string();
  ASSERT_EQ(Play_Site(Import_Words(table)).status, 0);
  const PlayedSession played =
      Play_Script(site_,
                  "file c:\\data\\images\\photo1.hdr\nmenu Add_images_to_set\n"
                  "print ImageBlock(0).ColorFlag\nprint ImageBlock(0).SubWidth\nsay shown\n",
                  300, 300);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("say shown"), std::string::npos);
  EXPECT_TRUE(site_.Has("c/data/pic0.bmp"));
}

TEST_F(ImportedBlock, FollowsTheConventionThatTheCheckChose) {
  photos_.resize(2);
  files_.resize(2);
  std::vector<TablePhoto> gon = photos_;
  for (TablePhoto& photo : gon) {
    photo.omega /= 0.9;
    photo.phi /= 0.9;
    photo.kappa /= 0.9;
  }
  const std::string table = source_.Write("gon.csv", Plain_Table(gon)).native.string();
  const SitePlayed check =
      Play_Site({"check", "orientation", Site_Path(), table, Observations(), Points(), "--json"});
  EXPECT_EQ(check.status, 0) << check.err;
  const auto object = nlohmann::json::parse(check.out);
  EXPECT_EQ(object["chosen"], object["conventions"][0]["name"]);
  EXPECT_LT(object["conventions"][0]["rms_px"], 1e-5);
  const SitePlayed import = Play_Site(Import_Words(table));
  ASSERT_EQ(import.status, 0) << import.err;
  EXPECT_EQ(nlohmann::json::parse(import.out)["convention"], object["chosen"]);
  Expect_Projections();
}

TEST_F(ImportedBlock, ACheckThatFitsNothingChangesNothing) {
  std::vector<TablePhoto> wrong = photos_;
  std::swap(wrong[0].centre, wrong[3].centre);
  wrong[1].kappa += 77;
  const std::string table = source_.Write("wrong.csv", Plain_Table(wrong)).native.string();
  const std::string before = site_.Read("site.toml");
  const SitePlayed check =
      Play_Site({"check", "orientation", Site_Path(), table, Observations(), Points(), "--json"});
  EXPECT_EQ(check.status, 1);
  EXPECT_NE(check.err.find("wrong.csv"), std::string::npos);
  EXPECT_TRUE(nlohmann::json::parse(check.out)["chosen"].is_null());
  EXPECT_EQ(site_.Read("site.toml"), before);
}

TEST_F(ImportedBlock, AKilledImportIsMadeWholeByTheNext) {
  files_.clear();
  for (TablePhoto& photo : photos_) {
    photo.width = 1500;
    photo.height = 1000;
    files_.push_back(Write_Tiff(source_, photo.name + ".tif", 1500, 1000, 3, GDT_Byte,
                                Mixed_Values(1500, 1000, 3)));
  }
  const std::string table = source_.Write("t.csv", Plain_Table(photos_)).native.string();
  std::vector<std::string> words = Import_Words(table);
  words.insert(words.begin(), SYLVOMEX_SITE_PROGRAM);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  for (useconds_t milliseconds = 20; milliseconds < 180; milliseconds += 20) {
    const pid_t child = fork();
    if (child == 0) {
      execv(SYLVOMEX_SITE_PROGRAM, arguments.data());
      _exit(127);
    }
    usleep(milliseconds * 1000);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    // What stands under a final name is whole, whenever the kill came.
    for (const TablePhoto& photo : photos_) {
      const auto raw = site_.Path() / "c/data/images" / (photo.name + ".raw");
      if (std::filesystem::exists(raw)) {
        EXPECT_EQ(std::filesystem::file_size(raw), 4500000U);
      }
    }
  }
  ASSERT_EQ(Play_Site(Import_Words(table)).status, 0);
  EXPECT_FALSE(site_.Has(".sylvomex-import"));
  std::string expected;
  for (const std::int32_t value : Mixed_Values(1500, 1000, 3)) {
    expected += static_cast<char>(value);
  }
  for (const TablePhoto& photo : photos_) {
    EXPECT_TRUE(site_.Read("c/data/images/" + photo.name + ".raw") == expected);
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(site_.Path() / "c/data/images"), {}),
            8);
}

TEST_F(ImportedBlock, AStretchThatIsNoneIsAWrongCommandLine) {
  EXPECT_EQ(Play_Site({"import", "images", Site_Path(), "t", "f", "--stretch", "60", "40"}).status,
            2);
  EXPECT_EQ(Play_Site({"import", "images", Site_Path(), "t", "f", "--stretch", "2", "101"}).status,
            2);
  EXPECT_EQ(
      Play_Site({"import", "images", Site_Path(), "t", "f", "--around", "1", "2", "3", "0"}).status,
      2);
}

}  // namespace
}  // namespace sylvomex
