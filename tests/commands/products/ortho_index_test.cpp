// SPDX-License-Identifier: MIT
// Create_An_OrthoIndex over two wide photographs: at 160 m image 7 covers X -1000 to 998, image 9
// X 0 to 1998, both Y -1000 to 1000.
#include <cstring>

#include "products_fixture.h"
#include "support/address_space_limit.h"

namespace sylvomex {
namespace {

constexpr int kColumns = 31, kRows = 21;  // of 100 m: (1998 + 1000) / 100, 2000 / 100

class OrthoIndexCommand : public ProductsTest {
 protected:
  OrthoIndexCommand() {
    site.Write_Image("a", Wide_Image(7, 0));
    site.Write_Image("b", Wide_Image(9, 1000));
    site.Folder().Make_Folder("c/temp");
    Write_Table("533");
  }

  void Write_Table(const std::string& number) const {
    site.Folder().Write("c/data/Cam_Data_j_" + number + ".csv",
                        "7,x,0.1,0,0,0,0,0,1160,one,c:\\data\\a.hdr,J\n"
                        "9,x,0.1,0,0,0,1000,0,1160,two,c:\\data\\b.hdr,J\n");
  }

  PlayedSession Play_Index(std::initializer_list<const char*> answers) const {
    return Play(Answers(answers) + "try menu Create_An_OrthoIndex\nprint Label2\n");
  }

  /// The content of the n-th file that a session wrote.
  [[nodiscard]] std::string Written(const PlayedSession& played, int n) const {
    std::size_t at = 0;
    for (int k = 0; k <= n; ++k) at = played.transcript.find("message \"C:\\temp\\", at) + 17;
    return site.Folder().Read("c/temp/" + played.transcript.substr(at, 12));
  }

  static float Float_At(const std::string& bytes, std::size_t cell) {
    float value = 0;
    std::memcpy(&value, &bytes[4 * cell], sizeof value);
    return value;
  }
};

TEST_F(OrthoIndexCommand, AsksForTableSizeAndColour) {
  const PlayedSession played = Play_Index({"533", "100", "0"});
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played,
                  "title=\"Orthoimage computation\" default=\"533\" -> \"533\"\n"
                  "input \"Pixel size in orthoimage? (m)\" title=\"Orthoimage "
                  "computation\" default=\"\" -> \"100\"\n"
                  "input \"Color (1) or BW (0)?\" title=\"Orthoimage computation\" "
                  "default=\"\" -> \"0\"\n"))
      << played.transcript;
  EXPECT_TRUE(Has(played, ".raw written\""));
  EXPECT_TRUE(Has(played, "Label2 = Image: 2\n"));
}

TEST_F(OrthoIndexCommand, TheFirstImageOfTheTableKeepsACell) {
  const PlayedSession played = Play_Index({"533", "100", "0"});
  const std::string ids = Written(played, 0);
  const std::string numbers = Written(played, 1);
  ASSERT_EQ(ids.size(), 4u * kColumns * kRows);
  ASSERT_EQ(numbers.size(), 1u * kColumns * kRows);
  for (const int row : {0, 10, 20}) {
    for (int col = 0; col < kColumns; ++col) {
      const std::size_t cell = static_cast<std::size_t>(row) * kColumns + col;
      const int X = -1000 + 100 * col;
      const int number = X <= 998 ? 1 : X <= 1998 ? 2 : 0;
      EXPECT_EQ(numbers[cell], number) << X;
      EXPECT_EQ(Float_At(ids, cell), number == 1 ? 7 : number == 2 ? 9 : 0) << X;
    }
  }
}

TEST_F(OrthoIndexCommand, ColourGivesThreeBytesACell) {
  const PlayedSession played = Play_Index({"533", "100", "1"});
  const std::string numbers = Written(played, 1);
  ASSERT_EQ(numbers.size(), 3u * kColumns * kRows);
  EXPECT_EQ(numbers.substr(0, 3), "\1\1\1");
  EXPECT_EQ(numbers.substr(3 * 25, 3), "\2\2\2");
}

TEST_F(OrthoIndexCommand, AnotherNumberIsAnotherTable) {
  Write_Table("12");
  EXPECT_EQ(Play_Index({"12", "100", "0"}).status, 0);
  const PlayedSession none = Play_Index({"13", "100", "0"});
  EXPECT_TRUE(Has(none, "File not found: c:\\data\\Cam_Data_j_13.csv")) << none.transcript;
}

TEST_F(OrthoIndexCommand, LeavesTheImageBlockAlone) {
  const PlayedSession played =
      Play(Load({"b"}) + Answers({"533", "100", "0"}) +
           "menu Create_An_OrthoIndex\nprint ImageCount\nprint ImageBlock(0).ImageId\n");
  EXPECT_TRUE(Has(played, "ImageCount = 1\nImageBlock(0).ImageId = 9\n")) << played.transcript;
}

TEST_F(OrthoIndexCommand, BadAnswersAndFilesAreOneFailureEach) {
  const auto cause_of = [&](std::initializer_list<const char*> answers) {
    return Play_Index(answers).transcript;
  };
  EXPECT_NE(cause_of({"533", "0", "0"}).find("the pixel size of the orthoimage is 0"),
            std::string::npos);
  EXPECT_NE(cause_of({"533", "fine"}).find("\"\"fine\"\" is not a number"), std::string::npos);
  EXPECT_NE(cause_of({"533", "-1", "0"}).find("X-extent"), std::string::npos);
  EXPECT_NE(cause_of({"533", "1e-9", "0"}).find("Overflow"), std::string::npos);
  site.Folder().Write("c/data/Cam_Data_j_533.csv", "\n");
  EXPECT_NE(cause_of({"533", "100", "0"}).find("lists no image that sees the ground"),
            std::string::npos);
  site.Folder().Write("c/data/Cam_Data_j_533.csv",
                      "7,x,0.1,0,0,0,0,0,1160,one,c:\\data\\none.hdr,J\n");
  EXPECT_NE(cause_of({"533", "100", "0"}).find("File not found: c:\\data\\none.hdr"),
            std::string::npos);
}

TEST_F(OrthoIndexCommand, AMissingFolderIsNamed) {
  std::filesystem::remove(site.Folder().Path() / "c/temp");
  const PlayedSession played = Play_Index({"533", "100", "0"});
  EXPECT_TRUE(Has(played, "error Create_An_OrthoIndex \"Path not found: C:\\temp\\"))
      << played.transcript;
}

TEST_F(OrthoIndexCommand, ADismissedQuestionEndsQuietly) {
  const PlayedSession played = Play("input 533\ncancel\nmenu Create_An_OrthoIndex\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_FALSE(Has(played, "written"));
}

TEST_F(OrthoIndexCommand, CellsBeyondTheMemoryThatIsLeftAreRefusedWithMegabytes) {
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played = Play_Index({"533", "0.2", "1"});
  // 2998 x 2000 m: 14991 x 10001 cells of five bytes are 714.9 MB.
  EXPECT_TRUE(Has(played,
                  "error Create_An_OrthoIndex \"Out of memory: an index of 14991 x 10001 cells "
                  "takes 714 MB, "))
      << played.transcript;
  EXPECT_TRUE(Has(played, " MB are left\"")) << played.transcript;
}

TEST_F(OrthoIndexCommand, ColourBeyondOnePieceIsThreeTimesTheOtherIndex) {
  // 1.5 million cells: 1500 x 1001 of 2 m.
  const std::string grey = Written(Play_Index({"533", "2", "0"}), 1);
  const std::string colour = Written(Play_Index({"533", "2", "1"}), 1);
  ASSERT_EQ(grey.size(), 1500u * 1001);
  ASSERT_EQ(colour.size(), 3 * grey.size());
  std::size_t wrong = 0;
  for (std::size_t k = 0; k < colour.size(); ++k) wrong += colour[k] != grey[k / 3] ? 1 : 0;
  EXPECT_EQ(wrong, 0u);
}

}  // namespace
}  // namespace sylvomex
