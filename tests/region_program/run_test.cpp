// SPDX-License-Identifier: MIT
// Running and merging: idempotent, whole or not at all, the same bytes whatever the order.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>

#include "interchange/coordinate_system.h"
#include "region_program/region_site.h"
#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

/// Two plots side by side; two images serve each, so that only the eastern one needs image 2.
std::string Two_Plots() { return "least_images = 2\nmost_images = 2\n"; }

std::vector<Point3D> Trees_In(const std::string& file) {
  Start_Gdal();
  const GDALDatasetUniquePtr data(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  std::vector<Point3D> trees;
  if (data == nullptr) return trees;
  for (const auto& feature : data->GetLayerByName("tree_tops")) {
    const OGRPoint* const at = feature->GetGeometryRef()->toPoint();
    trees.push_back({at->getX(), at->getY(), at->getZ()});
  }
  return trees;
}

void Expect_The_Four_Trees(const std::vector<Point3D>& trees) {
  EXPECT_EQ(trees.size(), kSiteTops.size());
  for (const Point3D& top : kSiteTops) {
    std::size_t near = 0;
    for (const Point3D& tree : trees) {
      near += std::hypot(tree.X - top.X, tree.Y - top.Y) < 1 ? 1 : 0;
    }
    EXPECT_EQ(near, 1U) << top.X << " " << top.Y;
  }
}

TEST_F(RegionSite, APlotsTopsAreWrittenWithTheirReport) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  const RegionPlayed played = Run({"tops-p1"});
  ASSERT_EQ(played.status, 0) << played.err;
  const std::string table = Read("plan/results/tops-p1/tops.csv");
  EXPECT_EQ(table.substr(0, table.find('\n')), "number,X,Y,Z,score,members");
  const auto report = Json("plan/results/tops-p1/task.json");
  EXPECT_EQ(report["status"], "done");
  EXPECT_EQ(report["plan"], Json("plan/plan.json")["id"]);
  EXPECT_EQ(report["figures"]["tops"], 4);
  EXPECT_EQ(report["files"]["tops.csv"]["bytes"], table.size());
  const auto& seconds = report["seconds"];
  EXPECT_GT(seconds["compute"], 0);
  EXPECT_NEAR(seconds["read"].get<double>() + seconds["compute"].get<double>() +
                  seconds["write"].get<double>(),
              seconds["total"].get<double>(), 1e-9);
  EXPECT_GT(report["peak_memory_bytes"], 0);
  EXPECT_NE(Read("plan/results/tops-p1/log.txt").find("model tree spruce"), std::string::npos);
}

TEST_F(RegionSite, ADoneTaskIsNotDoneAgain) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  const auto before = fs::last_write_time(Path("plan/results/tops-p1/task.json"));
  const RegionPlayed again = Run({"--bundle", "0"});
  EXPECT_EQ(again.status, 0);
  EXPECT_NE(again.out.find("tops-p1 was done before"), std::string::npos);
  EXPECT_EQ(fs::last_write_time(Path("plan/results/tops-p1/task.json")), before);
}

TEST_F(RegionSite, AFailedTaskSaysWhyAndTheOthersAreDone) {
  const std::string region =
      Two_Plots() + Region(Plots(Plot("east", 10, 3) + Plot("west", -10, 3)));
  ASSERT_EQ(Plan(region).status, 0);
  fs::rename(Site_File("c/data/im2.raw"), Site_File("c/data/away.raw"));
  RegionPlayed played = Run({"--bundle", "0"});
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.err.find("tops-east failed: File not found: c:\\data\\im2.raw"),
            std::string::npos)
      << played.err;
  EXPECT_FALSE(Has("plan/results/tops-east"));
  EXPECT_TRUE(Has("plan/results/tops-west/task.json"));
  Run({"tops-east"});
  EXPECT_EQ(Json("plan/results/tops-east.failed.json")["tries"], 2);
  fs::rename(Site_File("c/data/away.raw"), Site_File("c/data/im2.raw"));
  EXPECT_EQ(Run({"--bundle", "0"}).status, 0);
  EXPECT_FALSE(Has("plan/results/tops-east.failed.json"));
  for (const auto& entry : fs::directory_iterator(Path("plan/results"))) {
    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
  }
}

TEST_F(RegionSite, AFullDiskIsThatTasksFailure) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  RegionPlayed played;
  {
    const FileSizeLimit disk(50);
    played = Run({"tops-p1"});
  }
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.err.find("tops.csv: it cannot be written"), std::string::npos) << played.err;
  EXPECT_FALSE(Has("plan/results/tops-p1"));
  EXPECT_EQ(Run({"tops-p1"}).status, 0);
}

TEST_F(RegionSite, WhatAKilledProcessLeftDisturbsNothingAndIsRemoved) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  char host[256] = {};
  gethostname(host, sizeof host - 1);
  std::string name(host);
  for (char& c : name) c = c == '.' ? '-' : c;
  // A process that has ended, and one of another machine, of which nobody here can know.
  const pid_t ended = fork();
  if (ended == 0) _exit(0);
  waitpid(ended, nullptr, 0);
  const std::string end = "." + name + "." + std::to_string(ended) + ".7";
  const std::string left = ".tops-p1" + end;
  const std::string foreign = ".tops-p1.other." + std::to_string(ended) + ".7";
  for (const std::string& folder : {left, foreign}) {
    Write("plan/results/" + folder + "/tops.csv", "number\n");
  }
  EXPECT_EQ(Run({"tops-p1"}).status, 0);
  EXPECT_FALSE(Has("plan/results/" + left));
  EXPECT_TRUE(Has("plan/results/" + foreign));
  Write("merged/.merge" + end + "/.part-7-orthoimage.tif.ovr.tmp", "half");
  EXPECT_EQ(Merge("merged").status, 0);
  for (const auto& entry : fs::directory_iterator(Path("merged"))) {
    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
  }
}

TEST_F(RegionSite, ResultsOfAnotherPlanAreRefused) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3))), "one").status, 0);
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 4))), "two").status, 0);
  ASSERT_EQ(Run({"tops-p1"}, "one").status, 0);
  fs::copy(Path("one/results"), Path("two/results"), fs::copy_options::recursive);
  for (const RegionPlayed& played :
       {Merge("merged", "two"), Play_Region({"status", Path("two")}), Run({"tops-p1"}, "two")}) {
    EXPECT_NE(played.status, 0);
    EXPECT_NE(played.err.find("it holds the result of another plan"), std::string::npos)
        << played.err;
  }
  // Without its plan a folder of results is as foreign.
  fs::remove(Path("two/plan.json"));
  const RegionPlayed planned = Plan(Region(Plots(Plot("p1", 3, 4))), "two");
  EXPECT_EQ(planned.status, 1);
  EXPECT_NE(planned.err.find("it holds the result of another plan"), std::string::npos);
  EXPECT_FALSE(Has("two/plan.json"));
}

TEST_F(RegionSite, AResultOfAnotherPlanIsThatTasksFailureAndTheOthersAreDone) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3))), "one").status, 0);
  ASSERT_EQ(Run({"tops-p1"}, "one").status, 0);
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 4) + Plot("p2", -5, 3)))).status, 0);
  fs::create_directories(Path("plan/results"));
  fs::copy(Path("one/results/tops-p1"), Path("plan/results/tops-p1"));
  const RegionPlayed played = Run({"--bundle", "0"});
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.err.find("tops-p1 failed: "), std::string::npos) << played.err;
  EXPECT_TRUE(Has("plan/results/tops-p2/task.json"));
}

TEST_F(RegionSite, TheResultOfAnotherTaskIsNotTakenForATasksOwn) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p2", -5, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  fs::copy(Path("plan/results/tops-p1"), Path("plan/results/tops-p2"));
  for (const RegionPlayed& played : {Merge("merged"), Run({"tops-p2"})}) {
    EXPECT_NE(played.status, 0);
    EXPECT_NE(played.err.find("tops-p2: it holds the result of task tops-p1"), std::string::npos)
        << played.err;
  }
}

TEST_F(RegionSite, AFolderInATasksPlaceThatIsNoResultIsToldAsItsFailure) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  Write("plan/results/tops-p1/notes.txt", "mine\n");
  const RegionPlayed played = Run({"tops-p1"});
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.err.find("tops-p1: it is no result, but stands in the place of one"),
            std::string::npos)
      << played.err;
  EXPECT_EQ(Read("plan/results/tops-p1/notes.txt"), "mine\n");
}

TEST_F(RegionSite, TheStatusOfAPlanWritesNothing) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  EXPECT_EQ(Play_Region({"status", Path("plan")}).status, 0);
  EXPECT_FALSE(Has("plan/results"));
}

TEST_F(RegionSite, ResultsThatNoTaskHasAreRefused) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  fs::copy(Path("plan/results/tops-p1"), Path("plan/results/tops-p9"));
  EXPECT_NE(Merge("merged").err.find("it is the result of no task of this plan"),
            std::string::npos);
}

TEST_F(RegionSite, AResultThatWasChangedIsRefused) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  std::ofstream(Path("plan/results/tops-p1/tops.csv"), std::ios::app) << "5,1,1,1,2,3\n";
  const RegionPlayed played = Merge("merged");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("it is not as it was written"), std::string::npos) << played.err;
}

TEST_F(RegionSite, UnknownTasksAndBundlesAreRefusedBeforeAnythingIsDone) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  EXPECT_EQ(Run({"tops-p1", "tops-p2"}).status, 1);
  EXPECT_EQ(Run({"--bundle", "1"}).status, 1);
  EXPECT_FALSE(Has("plan/results/tops-p1"));
}

TEST_F(RegionSite, MergingWaitsForAllTasksUnlessAPartIsAskedFor) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p2", -5, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  const RegionPlayed played = Merge("merged");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("1 of 2 tasks are not done, the first is tops-p2"), std::string::npos);
  EXPECT_EQ(Play_Region({"merge", Path("plan"), "--out", Path("part"), "--partial"}).status, 0);
  // The tree at (8, -1) lies 6.4 m from the centre of p1.
  EXPECT_EQ(Trees_In(Path("part/tree_tops.gpkg")).size(), 3U);
}

TEST_F(RegionSite, ATreeOfTwoPlotsIsMergedToOne) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p2", 4, 3)))).status, 0);
  ASSERT_EQ(Run({"--bundle", "0"}).status, 0);
  ASSERT_EQ(Merge("merged").status, 0);
  Expect_The_Four_Trees(Trees_In(Path("merged/tree_tops.gpkg")));
}

TEST_F(RegionSite, SeamsOfAnAreaNeitherDoubleNorLoseATree) {
  // A seam goes through the tree at X = 5, another through that at Y = -1.
  ASSERT_EQ(
      Plan(Region("", "[area]\nwest = -4\nsouth = -10\neast = 14\nnorth = 8\ntile = 9\n")).status,
      0);
  EXPECT_EQ(Json("plan/plan.json")["tasks"].size(), 4U);
  ASSERT_EQ(Run({"--bundle", "0"}).status, 0);
  ASSERT_EQ(Merge("merged").status, 0);
  Expect_The_Four_Trees(Trees_In(Path("merged/tree_tops.gpkg")));
}

const std::string kOrthoimage =
    "[orthoimage]\nwest = -20\nsouth = -10\neast = 20\nnorth = 10\ncell = 0.25\ntile = 64\n"
    "lowest_ground = 0\n";

TEST_F(RegionSite, MergedFilesHaveTheSameBytesWhateverTheOrderAndTheThreads) {
  const std::string region = Region(Plots(Plot("p1", 3, 3) + Plot("p2", 8, 3)), kOrthoimage);
  ASSERT_EQ(Plan(region, "one").status, 0);
  ASSERT_EQ(Plan(region, "two").status, 0);
  ASSERT_EQ(Run({"--bundle", "0"}, "one").status, 0);
  std::vector<std::string> words;
  const auto plan = Json("two/plan.json");
  for (const auto& task : plan["tasks"]) {
    words.insert(words.begin(), task["id"].get<std::string>());
  }
  words.emplace_back("--threads");
  words.emplace_back("3");
  ASSERT_EQ(Run(words, "two").status, 0);
  ASSERT_EQ(Merge("merged_one", "one").status, 0);
  ASSERT_EQ(
      Play_Region({"merge", Path("two"), "--out", Path("merged_two"), "--threads", "3"}).status, 0);
  for (const char* file : {"tree_tops.gpkg", "orthoimage.tif"}) {
    EXPECT_EQ(Read(std::string("merged_one/") + file), Read(std::string("merged_two/") + file))
        << file;
  }
}

/// The middle byte of the colour image where a ground point at Z = 2 lies.
int Green_At(const std::string& raw, double X, double Y) {
  const int col = static_cast<int>(std::nearbyint(Site_Col(1, {X, Y, 2})));
  const int row = static_cast<int>(std::nearbyint(1000 - Site_Row({X, Y, 2})));
  return static_cast<unsigned char>(raw.at(static_cast<std::size_t>(3 * (row * 1000 + col) + 1)));
}

TEST_F(RegionSite, TheMosaicHasThePixelsOfTheImageInTheirPlaces) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)), kOrthoimage)).status, 0);
  ASSERT_EQ(Run({"--bundle", "0"}).status, 0);
  const RegionPlayed played = Merge("merged");
  ASSERT_EQ(played.status, 0) << played.err;
  const std::string raw = files_.site.Folder().Read("c/data/im1.raw");
  const GDALDatasetUniquePtr data(
      GDALDataset::Open(Path("merged/orthoimage.tif").c_str(), GDAL_OF_RASTER));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->GetRasterXSize(), 160);
  EXPECT_EQ(data->GetRasterYSize(), 80);
  EXPECT_STREQ(data->GetMetadataItem("LAYOUT", "IMAGE_STRUCTURE"), "COG");
  double place[6] = {};
  data->GetGeoTransform(place);
  EXPECT_EQ(place[0], -20);
  EXPECT_EQ(place[3], 10);
  std::vector<std::uint8_t> green(160 * 80);
  ASSERT_EQ(data->GetRasterBand(2)->RasterIO(GF_Read, 0, 0, 160, 80, green.data(), 160, 80,
                                             GDT_Byte, 0, 0),
            CE_None);
  int different = 0;
  for (int row = 0; row < 80; ++row) {
    for (int col = 0; col < 160; ++col) {
      const int expected = Green_At(raw, -20 + (col + 0.5) * 0.25, 10 - (row + 0.5) * 0.25);
      different += green[static_cast<std::size_t>(row * 160 + col)] == expected ? 0 : 1;
    }
  }
  EXPECT_EQ(different, 0);
}

TEST_F(RegionSite, TheReportShowsWhatIsDoneAndWhatFailed) {
  ASSERT_EQ(Plan(Two_Plots() +
                 Region(Plots(Plot("east", 10, 3) + Plot("west", -10, 3) + Plot("far", 300, 200))))
                .status,
            0);
  fs::remove(Site_File("c/data/im2.raw"));
  ASSERT_EQ(Run({"--bundle", "0"}).status, 3);
  ASSERT_EQ(Play_Region({"merge", Path("plan"), "--out", Path("m"), "--partial"}).status, 0);
  const std::string report = Read("m/report.txt");
  for (const char* words : {"Tasks: 2, done 1, failed 1", "tops-east (tries: 1): File not found",
                            "far: it lies outside all images"}) {
    EXPECT_NE(report.find(words), std::string::npos) << words << "\n" << report;
  }
  EXPECT_NE(Read("m/map.svg").find("<title>tops-east, failed: "), std::string::npos);
  EXPECT_NE(Read("m/report.html").find("<svg"), std::string::npos);
  const RegionPlayed status = Play_Region({"status", Path("plan"), "--json"});
  EXPECT_EQ(nlohmann::json::parse(status.out)["failed"], 1);
}

// Sanitizers need memory of their own.
#ifndef SYLVOMEX_SANITIZED
TEST_F(RegionSite, ATasksMemoryStaysBelowWhatThePlanTells) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)), kOrthoimage)).status, 0);
  ASSERT_EQ(Run({"--bundle", "0"}).status, 0);
  const auto plan = Json("plan/plan.json");
  for (const auto& task : plan["tasks"]) {
    const auto report = Json("plan/results/" + task["id"].get<std::string>() + "/task.json");
    EXPECT_LT(report["peak_memory_bytes"], task["memory_bytes"]) << task["id"];
  }
}
#endif

}  // namespace
}  // namespace sylvomex
