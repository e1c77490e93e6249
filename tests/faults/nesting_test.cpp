// SPDX-License-Identifier: MIT
// Commands that begin inside one another at every servicing of events, up to the limit.
#include <gtest/gtest.h>

#include "commands/matching/matching_site.h"
#include "commands/surfaces/surface_site.h"
#include "support/session_run.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

/// The command, with another one of its kind at each of the first servicings that follow.
std::string Nested(const std::string& command) {
  std::string script;
  for (int n = 1; n <= kMostNestedHandlers + 20; ++n) {
    script += "during " + std::to_string(n) + " try command " + command + "\n";
  }
  return script + "try command " + command + "\nsay end\n";
}

void Expect_Told_Limit(const PlayedSession& played) {
  EXPECT_NE(
      played.transcript.find("\"Out of memory: 100 commands run inside one another already\""),
      std::string::npos);
  EXPECT_NE(played.transcript.find("say end\n"), std::string::npos) << played.reason;
}

struct NestedMatching : testing::TestWithParam<const char*> {
  MatchingFiles files;

  static std::string Before() {
    std::string script;
    for (const char* name : {"im0", "im1", "im2"}) {
      script += std::string("file c:\\data\\") + name + ".hdr\nmenu Add_images_to_set\n";
    }
    return script +
           "input 3\ninput 3\ninput 2\nmenu Set_3D_solution\nmenu Read_plot_center_data\n"
           "set Text4 6\nset Text10 1\ninput 5\ninput 4\ninput 10.9\nmenu Set_3D_solution\n"
           "set Text1(0) 0\nset Text1(1) 0\nset Text1(2) 0\nset Text1(3) 0\nset Text1(4) 0\n"
           "set Text1(5) 0\nmenu Capture_templates\n";
  }
};

TEST_P(NestedMatching, EndsAtTheLimit) {
  Expect_Told_Limit(Play_Script(files.site.Folder(), Before() + Nested(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Of, NestedMatching,
                         testing::Values("Center_to_xyz_click", "Zoom_1_2", "Capture_templates",
                                         "Compute_Correlation_Images"));

struct NestedSurfaces : testing::TestWithParam<const char*> {};

TEST_P(NestedSurfaces, EndsAtTheLimit) {
  const SurfaceSite site;
  site.Write("c/data/IMA_polyline.txt",
             "-0.0025,-0.0012\n0.0045,-0.0012\n0.0045,0.0013\n-0.0025,0.0013\n");
  Expect_Told_Limit(site.Play(
      "set Text1(0) -0.002\nset Text1(1) 0.003\nset Text1(2) -0.002\nset Text1(3) 0.003\n" +
      Nested(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Of, NestedSurfaces,
                         testing::Values("Get_Surface_Height_InCdll", "Triplet_Matching"));

}  // namespace
}  // namespace sylvomex
