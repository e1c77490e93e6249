// SPDX-License-Identifier: MIT
#include "demo/write/evaluation_session.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/session_run.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

// A site with the inputs of the orientation test: headers, but no photographs.
struct OrientationSite {
  TemporaryFolder folder;
  Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  std::vector<Photograph> photos = Fly_Over(scene);

  OrientationSite() {
    for (const char* name : {"c/data/demo", "d", "e/lk", "f"}) folder.Make_Folder(name);
    Write_Evaluation_Files(scene, photos, folder.Drives());
    for (std::size_t k = 0; k < photos.size(); ++k) {
      const std::string name = "im" + std::to_string(k + 1) + ".hdr";
      folder.Write("c/data/demo/" + name, folder.Read("e/lk/" + name));
    }
  }
};

TEST(OrientationSession, SolvesTheTruePointsToTheMicrometreOfTheirObservations) {
  const OrientationSite site;
  const PlayedSession played = Play_Script(site.folder, Orientation_Session());
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  std::istringstream lines(site.folder.Read("c/text2.txt"));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    const std::size_t last = line.rfind(',');
    EXPECT_LT(std::abs(std::stod(line.substr(last + 1))), 0.1) << line;
  }
  EXPECT_GT(count, 81);
}

TEST(OrientationSession, WritesAFootprintForEveryPhotograph) {
  const OrientationSite site;
  const PlayedSession played = Play_Script(site.folder, Orientation_Session());
  ASSERT_EQ(played.status, 0) << played.reason;
  std::istringstream lines(site.folder.Read("e/lk/InitApprx.txt"));
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line);) ++count;
  EXPECT_EQ(count, site.photos.size());
}

TEST(EvaluationSession, EndsWithTheGraphsOfItsOwnRun) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const std::string session = Evaluation_Session(scene, Fly_Over(scene));
  const std::size_t clusters = session.rfind("menu Find_clusters");
  const std::size_t trees = session.find("menu Form6.Load_Reference_Trees");
  EXPECT_LT(clusters, trees);
  EXPECT_LT(trees, session.find("press Form6.Show_Results"));
}

}  // namespace
}  // namespace sylvomex::demo
