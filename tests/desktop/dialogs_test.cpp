// SPDX-License-Identifier: MIT
#include "desktop/file_filter.h"
#include "desktop/tone_player.h"
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

TEST(FileFilters, ADescriptionWithItsPatternOnce) {
  EXPECT_EQ(Name_Filters("HDR files (*.hdr)|*.hdr"), QStringList{"HDR files (*.hdr)"});
}

TEST(FileFilters, SeveralEntriesAndSeveralPatterns) {
  EXPECT_EQ(Name_Filters("Rasters|*.raw;*.img|All|*.*"),
            (QStringList{"Rasters (*.raw *.img)", "All (*)"}));
}

TEST(FileFilters, EmptyFilterShowsAllFiles) {
  EXPECT_EQ(Name_Filters(""), QStringList{"All files (*)"});
}

// A tenth of a second has 4410 samples of two bytes; 1000 Hz cross zero 200 times in it.
TEST(Tone, HasTheRequestedLengthAndPitch) {
  const QByteArray samples = Tone_Samples(1000, 100);
  ASSERT_EQ(samples.size(), 8820);
  int crossings = 0;
  int last_sign = 0;
  for (qsizetype k = 0; k < samples.size(); k += 2) {
    const auto value = static_cast<qint16>(static_cast<uchar>(samples[k]) |
                                           static_cast<uchar>(samples[k + 1]) << 8);
    const int sign = (value > 0) - (value < 0);
    if (sign != 0 && last_sign != 0 && sign != last_sign) ++crossings;
    if (sign != 0) last_sign = sign;
  }
  EXPECT_NEAR(crossings, 199, 2);
}

TEST(Tone, InaudibleOrEmptyIsSilent) {
  EXPECT_TRUE(Tone_Samples(0, 100).isEmpty());
  EXPECT_TRUE(Tone_Samples(-5, 100).isEmpty());
  EXPECT_TRUE(Tone_Samples(100000, 100).isEmpty());
  EXPECT_TRUE(Tone_Samples(1000, 0).isEmpty());
}

TEST(Tone, LastsFiveSecondsAtMost) {
  EXPECT_EQ(Tone_Samples(1000, 2000000000).size(), 5 * 44100 * 2);
}

using Dialogs = DesktopTest;

TEST_F(Dialogs, MessageWithoutATitleCarriesTheProgramsName) {
  EXPECT_EQ(w().screen->Message_Box("hello"), Answer::Ok);
  EXPECT_EQ(dialogs_.titles, std::vector<std::string>{"SYLVOMEX"});
}

TEST_F(Dialogs, MessageReturnsTheButtonChosen) {
  dialogs_.choice = QMessageBox::No;
  EXPECT_EQ(w().screen->Message_Box("sure?", Buttons::YesNo), Answer::No);
  dialogs_.choice = QMessageBox::Yes;
  EXPECT_EQ(w().screen->Message_Box("sure?", Buttons::YesNo), Answer::Yes);
  dialogs_.choice = QMessageBox::Cancel;
  EXPECT_EQ(w().screen->Message_Box("sure?", Buttons::OkCancel), Answer::Cancel);
}

TEST_F(Dialogs, CausesAreTheDetailsOfTheNextMessageOnly) {
  w().screen->Tell_Cause("c:\\data\\a.hdr, line 3");
  w().screen->Tell_Cause("image 2");
  w().screen->Message_Box("An error occurred!");
  w().screen->Message_Box("hello");
  EXPECT_EQ(dialogs_.details, (std::vector<std::string>{"c:\\data\\a.hdr, line 3\nimage 2", ""}));
  EXPECT_EQ(dialogs_.messages, (std::vector<std::string>{"An error occurred!", "hello"}));
}

TEST_F(Dialogs, CausesAreTheDetailsOfAnErrorToo) {
  site_.Folder().Write("c/data/a.hdr", SmallSite::Header_Text({}, "c:\\data\\none.raw"));
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/a.hdr").string());
  Choose("Add_images_to_set");
  EXPECT_EQ(dialogs_.messages,
            std::vector<std::string>{"Add_images_to_set: File not found: c:\\data\\none.raw"});
  EXPECT_EQ(dialogs_.details, std::vector<std::string>{"the name stands in c:\\data\\a.hdr"});
}

TEST_F(Dialogs, ACauseWithoutAMessageEndsWithItsEvent) {
  w().screen->Tell_Cause("image 2");
  Choose("Draw_Polygon");
  w().screen->Message_Box("hello");
  EXPECT_EQ(dialogs_.details, std::vector<std::string>{""});
}

TEST_F(Dialogs, RepeatedMessageOffersSilence) {
  w().screen->Message_Box("again");
  EXPECT_EQ(dialogs_.silencers_offered, 0);
  w().screen->Message_Box("again");
  EXPECT_EQ(dialogs_.silencers_offered, 1);
}

TEST_F(Dialogs, SilencedMessageStaysAwayUntilTheNextEvent) {
  dialogs_.silence = true;
  for (int k = 0; k < 1000; ++k) w().screen->Message_Box("again");
  EXPECT_EQ(dialogs_.messages.size(), 2U);
  Choose("Draw_Polygon");
  w().screen->Message_Box("again");
  EXPECT_EQ(dialogs_.messages.size(), 3U);
}

TEST_F(Dialogs, InputBoxReturnsTheTextEntered) {
  dialogs_.inputs.push_back("120");
  EXPECT_EQ(w().screen->Input_Box("Give Col"), "120");
  EXPECT_EQ(w().screen->Input_Box("Give Col"), std::nullopt);
}

TEST_F(Dialogs, FileDialogGivesTheDriveName) {
  const FilePath file = site_.Folder().Write("c/data/x.hdr", "x");
  dialogs_.files.push_back(file.native.string());
  EXPECT_EQ(w().screen->File_Dialog({"Header file", "HDR files (*.hdr)|*.hdr", 1, ""}),
            "c:\\data\\x.hdr");
  EXPECT_EQ(dialogs_.titles, std::vector<std::string>{"Header file"});
}

TEST_F(Dialogs, FileDialogUnderstandsATypedDriveNameWithoutItsEnding) {
  site_.Folder().Write("c/data/x.hdr", "x");
  dialogs_.files.push_back("c:\\data\\x");
  EXPECT_EQ(w().screen->File_Dialog({"Header file", "HDR files (*.hdr)|*.hdr", 1, ""}),
            "c:\\data\\x.hdr");
}

TEST_F(Dialogs, FileDialogGivesTheNativePathOfAFileOutsideTheDrives) {
  const FilePath file = site_.Folder().Write("elsewhere/x.hdr", "x");
  dialogs_.files.push_back(file.native.string());
  EXPECT_EQ(w().screen->File_Dialog({"Header file", "HDR files (*.hdr)|*.hdr", 1, ""}),
            file.native.string());
}

TEST_F(Dialogs, ErrorNamesTheCommandAndTheCause) {
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/none.hdr").string());
  Choose("Add_images_to_set");
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_EQ(dialogs_.messages[0].substr(0, 33), "Add_images_to_set: File not found");
}

TEST_F(Dialogs, RandomNumbersLieBetweenZeroAndOneAndDiffer) {
  const double first = w().screen->Random();
  EXPECT_GE(first, 0.0);
  EXPECT_LT(first, 1.0);
  EXPECT_NE(first, w().screen->Random());
}

}  // namespace
}  // namespace sylvomex
