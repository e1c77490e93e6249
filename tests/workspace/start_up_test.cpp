// SPDX-License-Identifier: MIT
#include "workspace/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "session/script_screen.h"
#include "support/session_run.h"
#include "support/small_site.h"
#include "workspace/number_separators.h"

namespace sylvomex {
namespace {

constexpr const char* kPointMessage =
    "message \"SYLVOMEX requires the use of point as decimal separator\" title=\"\" buttons=ok "
    "-> ok\n";
constexpr const char* kCommaMessage =
    "message \"SYLVOMEX requires the use of comma as list separator\" title=\"\" buttons=ok -> "
    "ok\n";

std::string Locale_Messages(NumberSeparators separators) {
  SmallSite site;
  std::ostringstream transcript;
  std::ostringstream log;
  ScriptScreen screen(transcript, log);
  auto w = std::make_unique<Workspace>(site.Drives(), screen);
  Run_Locale_Test(*w, separators);
  EXPECT_FALSE(std::filesystem::exists(site.Folder().Path() / "c/data/PILKKUTESTI.TXT"));
  return transcript.str();
}

TEST(LocaleTest, IsSilentWithPointAndComma) { EXPECT_EQ(Locale_Messages({'.', ','}), ""); }

TEST(LocaleTest, CommaAsDecimalSeparatorGivesTheFirstMessage) {
  EXPECT_EQ(Locale_Messages({',', ','}), kPointMessage);
}

TEST(LocaleTest, SemicolonAsListSeparatorGivesTheSecondMessage) {
  EXPECT_EQ(Locale_Messages({'.', ';'}), kCommaMessage);
}

TEST(LocaleTest, BothMessagesComeInOrder) {
  EXPECT_EQ(Locale_Messages({',', ';'}), std::string(kPointMessage) + kCommaMessage);
}

TEST(StartUp, SetsTheDefaults) {
  SmallSite site;
  const PlayedSession played = Play_Script(
      site.Folder(),
      "expect EpipolarZDepth 5\nexpect StepLength 1\nexpect RmseBeepOneLevel 30\n"
      "expect RmseBeepTwoLevel 60\nexpect RmseBeepOneFrequency 1000\n"
      "expect RmseBeepTwoFrequency 600\nexpect RmseBeepOneDuration 200\n"
      "expect RmseBeepTwoDuration 200\nexpect IterationStopDX 0.03\n"
      "expect IterationStopDY 0.03\nexpect IterationStopDZ 0.03\n"
      "expect PlotTreesMinHeight 10\nexpect IncludeTreeNumbers 0\nexpect PlotAllAfterSave 0\n"
      "expect AutoEpipolar -1\nexpect CurrentImage -1\nexpect SolutionValid 0\n"
      "expect NextMeasurementNumber 1\nexpect Label2 \"Measurement number: 1\"\n"
      "expect ObservationFileName c:\\data\\Lehtomaa\\Pistedata\\PointData.txt\n"
      "expect RasterDemLoaded 0\nexpect Text4 23\nexpect Text5 1.5\nexpect Text6 3\n"
      "expect Text7 0\nexpect Text8 1.15\nexpect Text9 0.6\nexpect Text2 1.5\n"
      "expect Text3 0.3\nexpect Text10 0.5\nexpect Label1(8).ForeColor \"0 0 0\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript, "");
}

TEST(StartUp, EndsWithTheFileErrorWhenTheDataFolderIsMissing) {
  TemporaryFolder empty;
  const PlayedSession played = Play_Script(empty, "say never\n");
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.reason.find("C:\\Data\\PILKKUTESTI.TXT"), std::string::npos) << played.reason;
  EXPECT_EQ(played.transcript.find("never"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
