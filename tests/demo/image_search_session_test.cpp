// SPDX-License-Identifier: MIT
// The flow "Images in which a point is seen" on the demo site.
#include <gtest/gtest.h>

#include "demo/write/demo_site.h"
#include "support/session_run.h"

namespace sylvomex::demo {
namespace {

struct SmallDemoSite : testing::Test {
  TemporaryFolder site;
  std::vector<Photograph> photos;

  SmallDemoSite() {
    SiteSettings settings;
    settings.pixel_scale = 16;
    settings.pulse_share = 0.001;
    const Scene scene = Build_Scene(settings);
    photos = Fly_Over(scene);
    Write_Demo_Site(scene, photos, site.Path());
  }
};

TEST_F(SmallDemoSite, EveryHitOfTheAerialSearchOpensAsAnImageCentredOnThePoint) {
  std::string script =
      "input 2515150\ninput 6860150\ninput 165\nmenu Set_3D_solution\n"
      "menu Find_Images_With_XYZ_Sol\n";
  int count = 0;
  for (const Photograph& photo : photos) {
    const std::string id = std::to_string(photo.image.ImageId);
    const std::string k = std::to_string(count++);
    script += "file c:\\data\\imafiles\\demo_" + id + ".txt\nkey F2\nexpect ImageCount " +
              std::to_string(count) + "\nexpect ImageBlock(" + k + ").ImageId " + id +
              "\nexpect ObservationRecord.FreeInteger " + id +
              "\nexpect Label10 \"Images centered to given XYZ\"\n";
  }
  const PlayedSession played = Play_Script(site, script);
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_NE(played.transcript.find("\"Written 6 files in c:\\Data\\Imafiles\""), std::string::npos);
  EXPECT_EQ(played.transcript.find("\nerror "), std::string::npos) << played.transcript;
  std::size_t copied = 0;
  for (std::size_t at = 0; (at = played.transcript.find("\nclipboard ", at)) != std::string::npos;
       ++at) {
    ++copied;
  }
  EXPECT_EQ(copied, 6U);
}

}  // namespace
}  // namespace sylvomex::demo
