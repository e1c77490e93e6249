// SPDX-License-Identifier: MIT
// The search as one function against the commands played in a session, and what it says of inputs
// that it cannot use.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "commands/matching/matching_site.h"
#include "imageblock/image_header.h"
#include "matching/tree_top_chain.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "support/session_run.h"

namespace sylvomex {
namespace {

constexpr double kGround = 2, kCanopy = 12;

struct Chain : testing::Test {
  MatchingFiles files;
  std::vector<MappedFile> raws;
  std::vector<FilePath> names;
  std::vector<ChainImage> images;
  TreeTopOrder order;

  Chain() {
    order.plot = kPlotCentre;
    order.model_tree = kSiteTops[0];
    order.numbers.r = 6;
    order.numbers.Mesh = 1;
    order.numbers.Rl = 0.4;
    const DriveMap drives = files.site.Drives();
    raws.reserve(3);
    names.reserve(3);
    for (int k = 0; k < 3; ++k) {
      ListReader header(drives.Locate("c:\\data\\im" + std::to_string(k) + ".hdr"));
      const ImageRecord record = Read_Image_Header(header);
      names.push_back(drives.Locate(record.RawFileName.Trimmed()));
      raws.emplace_back(names.back());
      images.push_back({record,
                        Make_Camera(record),
                        {raws.back().Bytes(), record.SubWidth, record.SubHeight, &names.back()}});
    }
  }

  [[nodiscard]] TreeTopSearch Find(int threads = 1) const {
    return Find_Tree_Tops(
        order, images, [](double, double) { return kGround; },
        [](double, double) { return kCanopy; }, threads);
  }
};

std::string Node_Lines(const std::vector<TreeTop>& tops) {
  std::string lines;
  for (std::size_t i = 0; i < tops.size(); ++i) {
    const Point3D& at = tops[i].at;
    lines += std::to_string(i + 1) + "," + Plain_Text(at.X) + "," + Plain_Text(at.Y) + "," +
             Plain_Text(at.Z) + "\n";
  }
  return lines;
}

std::string Commands() {
  std::ostringstream script;
  script.precision(17);
  script << Loading_Steps();
  const auto at = [&script](const Point3D& p) {
    script << "input " << p.X << "\ninput " << p.Y << "\ninput " << p.Z
           << "\nmenu Set_3D_solution\n";
  };
  at(kPlotCentre);
  script << "menu Read_plot_center_data\nset Text4 6\nset Text10 1\nset Text3 0.4\n";
  at(kSiteTops[0]);
  script << "menu Capture_templates\nmenu Compute_Correlation_Images\n"
            "menu Create_XYZ_Point_Set\nmenu Compute_Back_Projections\nmenu Find_clusters\n"
            "print MeshPoints.Count\nprint ModelTreeHeight\nprint ClusterWeight(1)\n"
            "print ClusterInfo(1)\n";
  return script.str();
}

double Printed(const std::string& transcript, const std::string& name) {
  const std::size_t at = transcript.find("\n" + name + " = ");
  return at == std::string::npos ? NAN : std::stod(transcript.substr(at + name.size() + 4));
}

TEST_F(Chain, FindsTheTopsOfTheCommandsToTheLastDigit) {
  const PlayedSession played = Play_Script(files.site.Folder(), Commands());
  ASSERT_EQ(played.status, 0) << played.reason;
  const TreeTopSearch found = Find();
  EXPECT_EQ(Node_Lines(found.tops), files.site.Folder().Read("c/data/testi_89_manual2.nod"));
  EXPECT_EQ(Printed(played.transcript, "MeshPoints.Count"), static_cast<double>(found.mesh_points));
  EXPECT_EQ(Printed(played.transcript, "ModelTreeHeight"), found.model_tree_height);
  EXPECT_EQ(Printed(played.transcript, "ClusterWeight(1)"), found.tops.at(0).weight);
  EXPECT_NE(played.transcript.find("ClusterInfo(1) = 0 " + std::to_string(found.tops[0].members)),
            std::string::npos);
}

TEST_F(Chain, FindsTheFourTreesOfThePlot) {
  const TreeTopSearch found = Find();
  ASSERT_EQ(found.tops.size(), kSiteTops.size());
  EXPECT_EQ(found.images, 3U);
  EXPECT_GT(found.seconds.compute, 0);
  EXPECT_GT(found.seconds.read, 0);
  EXPECT_TRUE(found.notes.empty());
  for (const Point3D& top : kSiteTops) {
    EXPECT_TRUE(std::any_of(found.tops.begin(), found.tops.end(),
                            [&top](const TreeTop& one) {
                              return std::hypot(one.at.X - top.X, one.at.Y - top.Y) < 0.5;
                            }))
        << top.X << " " << top.Y;
  }
}

TEST_F(Chain, GivesTheSameBitsOnOneThreadAndOnMany) {
  const TreeTopSearch one = Find(1), many = Find(0);
  ASSERT_EQ(one.tops.size(), many.tops.size());
  for (std::size_t i = 0; i < one.tops.size(); ++i) {
    EXPECT_EQ(one.tops[i].at.X, many.tops[i].at.X);
    EXPECT_EQ(one.tops[i].at.Y, many.tops[i].at.Y);
    EXPECT_EQ(one.tops[i].at.Z, many.tops[i].at.Z);
    EXPECT_EQ(one.tops[i].weight, many.tops[i].weight);
  }
}

TEST_F(Chain, LeavesOutAnImageThatDoesNotShowTheModelTreeAndSaysWhy) {
  images[2].record.SubColOrigin = 700;  // its raw file begins beyond the tree
  const TreeTopSearch found = Find();
  EXPECT_EQ(found.images, 2U);
  ASSERT_EQ(found.notes.size(), 1U);
  EXPECT_NE(found.notes[0].find("image 102 is left out"), std::string::npos) << found.notes[0];
}

std::string Failure_Of(const Chain& chain) try {
  (void)chain.Find();
  return "";
} catch (const RunTimeError& error) {
  return error.what();
}

TEST_F(Chain, NeedsTwoImagesThatShowTheModelTree) {
  images.resize(1);
  EXPECT_NE(Failure_Of(*this).find("fewer than two images show the model tree"), std::string::npos);
}

TEST_F(Chain, TakesAtMostNineImages) {
  images.resize(10, images[0]);
  EXPECT_NE(Failure_Of(*this).find("10 images"), std::string::npos);
}

TEST_F(Chain, ACrownWithoutWidthIsAnErrorInTheNumbers) {
  order.numbers.crown = {0, 0, 0};
  EXPECT_NE(Failure_Of(*this).find("has no width"), std::string::npos) << Failure_Of(*this);
}

}  // namespace
}  // namespace sylvomex
