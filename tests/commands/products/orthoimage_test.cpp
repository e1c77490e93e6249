// SPDX-License-Identifier: MIT
// Orto by script over a vertical photograph: 1000 m above Z = 0, c = 0.1 m, 10 um pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/work_meter.h"
#include "support/address_space_limit.h"
#include "support/file_size_limit.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class OrtoCommand : public testing::Test {
 protected:
  /// A raster model of 5 x 5 cells of 100 m around (0, 0), all of one height.
  void Write_Model(float height) const {
    std::string cells(25 * sizeof(float), '\0');
    for (int k = 0; k < 25; ++k) std::memcpy(&cells[k * sizeof(float)], &height, sizeof height);
    site.Folder().Write("c/data/dem.raw", cells);
    site.Folder().Write("c/data/dem.hdr", "5 5 -200 -200 100 -99\nc:\\data\\dem.raw\n");
  }

  PlayedSession Play(const std::string& answers, bool with_model = true) const {
    site.Write_Image("a", {.colour = colour});
    std::string script = "file c:\\data\\a.hdr\nmenu Add_images_to_set\n";
    if (with_model) script += "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n";
    return Play_Script(site.Folder(), script + answers + "\ntry menu Orto\nprint Label2\n");
  }

  static std::string Answers(std::initializer_list<const char*> answers) {
    std::string script;
    for (const char* answer : answers) script += std::string("input ") + answer + "\n";
    return script;
  }

  SmallSite site;
  int colour = 1;
};

TEST_F(OrtoCommand, WithoutAHeightModelSaysSo) {
  const PlayedSession played = Play("", false);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"Read height model first!\""), std::string::npos);
}

TEST_F(OrtoCommand, WritesNearestPixelsFromTheSouthWithAnOffsetOfOnePixel) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "1.6", "0.8", "0.8", "160", "c:\\data\\ortho.raw"}));
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"Columns: 3  Rows: 2\""), std::string::npos);
  EXPECT_NE(played.transcript.find("message \"c:\\data\\ortho.raw written\""), std::string::npos);
  EXPECT_NE(played.transcript.find("Elevation outside DEM? , Default = 170 (m)\" "
                                   "title=\"Orthoimage computation\" default=\"160\""),
            std::string::npos);
  // At Z = 200 a pixel is 0.08 m: cell (c, r) is read at ((c + 1) 0.8, (r + 1) 0.8), which is
  // column 500 + 10 (c + 1) and row 500 + 10 (r + 1) from the bottom, raw row 999 - row.
  const std::string bytes = site.Folder().Read("c/data/ortho.raw");
  ASSERT_EQ(bytes.size(), 3u * 2 * 3);
  for (int r = 0; r < 2; ++r) {
    for (int c = 0; c < 3; ++c) {
      const std::size_t at = static_cast<std::size_t>(3 * (r * 3 + c));
      EXPECT_EQ(static_cast<std::uint8_t>(bytes[at]), (510 + 10 * c) % 251);
      EXPECT_EQ(static_cast<std::uint8_t>(bytes[at + 1]), (999 - 510 - 10 * r) % 241);
      EXPECT_EQ(bytes[at + 2], 7);
    }
  }
}

TEST_F(OrtoCommand, AGreyImageGivesOneByteAPixel) {
  colour = 0;
  Write_Model(200);
  Play(Answers({"0", "0", "0", "0", "0.8", "0.8", "160", "c:\\data\\ortho.raw"}));
  const std::string bytes = site.Folder().Read("c/data/ortho.raw");
  ASSERT_EQ(bytes.size(), 2u);
  EXPECT_EQ(static_cast<std::uint8_t>(bytes[0]), 510 % 251);
}

TEST_F(OrtoCommand, ProgressIsShownForEachColumn) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "2.4", "0", "0.8", "160", "c:\\data\\ortho.raw"}));
  // The last of four columns: 3 / 4.
  EXPECT_NE(played.transcript.find("Label2 = 0075.0000 %"), std::string::npos) << played.transcript;
}

TEST_F(OrtoCommand, AnImageNumberAboveTheLastIsAskedAgain) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"1", "0", "0", "0", "0", "0", "1", "160", "c:\\data\\ortho.raw"}));
  EXPECT_NE(played.transcript.find("message \"There are :1 photographs, numbered : 0-0\""),
            std::string::npos)
      << played.transcript;
  EXPECT_EQ(site.Folder().Read("c/data/ortho.raw").size(), 3u);
}

TEST_F(OrtoCommand, AnImageNumberIsRounded) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0.4", "0", "0", "0", "0", "1", "160", "c:\\data\\ortho.raw"}));
  EXPECT_EQ(played.transcript.find("There are :"), std::string::npos) << played.transcript;
  EXPECT_EQ(site.Folder().Read("c/data/ortho.raw").size(), 3u);
}

TEST_F(OrtoCommand, GroundBelow100TakesTheAnswer) {
  Write_Model(99.9f);
  Play(Answers({"0", "0", "0", "0", "0", "1", "200", "c:\\data\\low.raw"}));
  Write_Model(200);
  Play(Answers({"0", "0", "0", "0", "0", "1", "500", "c:\\data\\high.raw"}));
  EXPECT_EQ(site.Folder().Read("c/data/low.raw"), site.Folder().Read("c/data/high.raw"));
}

TEST_F(OrtoCommand, ATextForAnElevationLeaves170) {
  Write_Model(0);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "0", "0", "1", "high", "c:\\data\\ortho.raw"}));
  EXPECT_NE(played.transcript.find("message \"An error occurred, too wide orthoimage?\""),
            std::string::npos);
  Play(Answers({"0", "0", "0", "0", "0", "1", "170", "c:\\data\\same.raw"}));
  EXPECT_EQ(site.Folder().Read("c/data/ortho.raw"), site.Folder().Read("c/data/same.raw"));
}

TEST_F(OrtoCommand, APixelOfZeroAndAnExtentWithoutRoomAreOneMessage) {
  Write_Model(200);
  for (const char* pixel : {"0", "1e-6"}) {
    const PlayedSession played =
        Play(Answers({"0", "0", "0", "1e9", "1e9", pixel, "160"}) + "cancel");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_NE(played.transcript.find("message \"An error occurred, too wide orthoimage?\""),
              std::string::npos)
        << played.transcript;
  }
}

TEST_F(OrtoCommand, CellsBeyondTheMemoryThatIsLeftAreRefusedBeforeAnyIsComputed) {
  Write_Model(200);
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "19999", "9999", "1", "160"}) + "cancel");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"An error occurred, too wide orthoimage?\""),
            std::string::npos)
      << played.transcript;
  // 20000 x 10000 pixels of three bytes are 572.2 MB.
  EXPECT_NE(played.reason.find("an orthoimage of 20000 x 10000 pixels takes 572 MB, "),
            std::string::npos)
      << played.reason;
  EXPECT_EQ(played.transcript.find("Label2 = 0"), std::string::npos) << played.transcript;
}

TEST_F(OrtoCommand, ANegativeImageNumberIsAFailure) {
  Write_Model(200);
  const PlayedSession played = Play(Answers({"-1", "0", "0", "0", "0", "1", "160"}) + "cancel");
  EXPECT_NE(played.transcript.find("message \"An error occurred, too wide orthoimage?\""),
            std::string::npos);
}

TEST_F(OrtoCommand, AFolderThatDoesNotExistIsAFailureAndNothingIsWritten) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "0", "0", "1", "160", "c:\\none\\ortho.raw"}));
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("too wide orthoimage?"), std::string::npos);
  EXPECT_EQ(played.transcript.find("written"), std::string::npos);
}

TEST_F(OrtoCommand, ADismissedQuestionEndsQuietly) {
  Write_Model(200);
  const PlayedSession played = Play("input 0\ninput 0\ncancel");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript.find("An error"), std::string::npos) << played.transcript;
}

TEST_F(OrtoCommand, AnImageRemovedInTheMiddleEndsTheComputation) {
  Write_Model(200);
  const PlayedSession played =
      Play("during 70 menu Remove_an_image\n" +
           Answers({"0", "0", "0", "150", "10", "1", "160", "100", "c:\\data\\ortho.raw"}));
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("too wide orthoimage?"), std::string::npos) << played.transcript;
}

TEST_F(OrtoCommand, AnExtentOfZeroGivesASingleColumnAndRow) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "0", "0", "1", "160", "c:\\data\\ortho.raw"}));
  EXPECT_NE(played.transcript.find("message \"Columns: 1  Rows: 1\""), std::string::npos);
  EXPECT_EQ(site.Folder().Read("c/data/ortho.raw").size(), 3u);
}

TEST_F(OrtoCommand, ANegativeExtentIsOneMessage) {
  Write_Model(200);
  const PlayedSession played = Play(Answers({"0", "0", "0", "-10", "10", "1", "160"}) + "cancel");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("too wide orthoimage?"), std::string::npos) << played.transcript;
}

TEST_F(OrtoCommand, ATextForAnExtentLeavesZeroAndTheQuestionsGoOn) {
  Write_Model(200);
  const PlayedSession played =
      Play(Answers({"0", "0", "0", "wide", "0", "1", "160", "c:\\data\\ortho.raw"}));
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("too wide orthoimage?"), std::string::npos) << played.transcript;
  EXPECT_NE(played.transcript.find("message \"Columns: 1  Rows: 1\""), std::string::npos);
}

TEST_F(OrtoCommand, WithoutAnImageEveryNumberIsAskedAgain) {
  Write_Model(200);
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
                  "input 0\ncancel\nmenu Orto\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"There are :0 photographs, numbered : 0--1\""),
            std::string::npos)
      << played.transcript;
}

TEST_F(OrtoCommand, AFullDiskLeavesTheOldFile) {
  Write_Model(200);
  site.Write_Image("a", {.colour = colour});
  site.Folder().Write("c/data/ortho.raw", "old");
  const FileSizeLimit full(100000);
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "file c:\\data\\a.hdr\ntry menu Add_images_to_set\n"
                  "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n" +
                      Answers({"0", "0", "0", "250", "250", "1", "160", "c:\\data\\ortho.raw"}) +
                      "menu Orto\n");
  EXPECT_NE(played.transcript.find("too wide orthoimage?"), std::string::npos) << played.transcript;
  EXPECT_EQ(site.Folder().Read("c/data/ortho.raw"), "old");
}

/// The looks at a command that knows its share.
struct Shares : WorkWatcher {
  std::vector<double> seen;
  void Look(double done) override {
    if (done >= 0) seen.push_back(done);
  }
};

// 5000 columns are computed in three parts, each as a whole.
TEST_F(OrtoCommand, TheShareFollowsWhatIsComputedAndNeverFalls) {
  Write_Model(200);
  Shares watcher;
  const WatchedWork watched(&watcher);
  const PlayedSession played =
      Play(Answers({"0", "-100", "-100", "4999", "2", "1", "160"}) + "cancel\n");
  ASSERT_EQ(played.status, 0) << played.reason;
  // The command begins at 0; loading before it had shares of its own.
  const auto begin = std::find(watcher.seen.rbegin(), watcher.seen.rend(), 0.0).base();
  EXPECT_GT(watcher.seen.end() - begin, 9990);  // two looks a column
  EXPECT_TRUE(std::is_sorted(begin, watcher.seen.end()));
  const auto a_third =
      std::find_if(begin, watcher.seen.end(), [](double done) { return done > 0.33; });
  EXPECT_LT(a_third - begin, 100);
  EXPECT_EQ(watcher.seen.back(), 1);
}

}  // namespace
}  // namespace sylvomex
