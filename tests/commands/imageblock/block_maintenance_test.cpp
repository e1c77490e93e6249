// SPDX-License-Identifier: MIT
#include "commands/imageblock/block_maintenance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "support/session_run.h"
#include "support/small_site.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.rfind(from), from.size(), to);
}

// Three images 1, 2, 3 with comments of their own; image 2 has a related raster.
struct ThreeImages : testing::Test {
  SmallSite site;

  ThreeImages() {
    for (int id = 1; id <= 3; ++id) {
      SmallImage image;
      image.id = id;
      image.X0 = 10.0 * id;
      image.phi = 0.01 * id;
      const std::string name = "im" + std::to_string(id);
      site.Write_Image(name, image);
      std::string header = Replaced(site.Folder().Read("c/data/" + name + ".hdr"), "a comment",
                                    "comment " + std::to_string(id));
      if (id == 2) header = Replaced(header, "\n0\n", "\n1\n3 c:\\data\\b.raw 100 100\n");
      site.Folder().Write("c/data/" + name + ".hdr", header);
    }
  }

  [[nodiscard]] PlayedSession Play(const std::string& script, int images = 3) const {
    std::string all;
    for (int id = 1; id <= images; ++id) {
      all += "file c:\\data\\im" + std::to_string(id) + ".hdr\nmenu Add_images_to_set\n";
    }
    return Play_Script(site.Folder(), all + "say removal\n" + script);
  }

  // The transcript after the images were added.
  static std::string After(const PlayedSession& played) {
    const std::string mark = "say removal\n";
    return played.transcript.substr(played.transcript.find(mark) + mark.size());
  }
};

const char* const kSetSolution = "input 5\ninput 6\ninput 7\nmenu Set_3D_solution\n";

std::string Asked(int last, const std::string& answer) {
  return "input \"Which image (one at a time or all) do you wish to remove from the set: 0-" +
         std::to_string(last) +
         " ? (100 = all images)\" title=\"Removing an image from the set\" default=\"100\" -> " +
         answer + "\n";
}

TEST_F(ThreeImages, RemovingTheFirstShiftsTheOthersDownWithTheirZoom) {
  const PlayedSession played = Play(
      "set Text1(2) 0\nset Text1(3) 0\nmenu Zoom_1_2\nsay now\n"
      "input 0\nmenu Remove_an_image\n"
      "expect ImageCount 2\nexpect ImageBlock(0).ImageId 2\nexpect ImageBlock(1).ImageId 3\n"
      "expect ImageBlock(0).X0 20\nexpect ImageBlock(1).X0 30\n"
      "print PaneViews(0)\nprint PaneViews(1)\nprint Label10\nexpect CurrentImage -1\n"
      "expect Picture1(1).Visible -1\nexpect Picture1(2).Visible 0\nexpect Text1(4).Visible 0\n"
      "expect Check1(0).Caption \"Use: 2\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  // Two panes are 600 pixels wide: 1200 raw pixels at half size exceed the raw file, so the view
  // keeps its position.
  const std::string after = played.transcript.substr(played.transcript.find("say now\n") + 8);
  EXPECT_EQ(after.substr(0, Asked(2, "\"0\"").size()), Asked(2, "\"0\""));
  EXPECT_NE(after.find(" 600 600 0.5 0.5\n"), std::string::npos) << after;
  EXPECT_NE(after.find("PaneViews(1) = 201 201 600 600 1 1\n"), std::string::npos) << after;
  EXPECT_NE(after.find("Label10 = Removed an image from the set succesfully\n"), std::string::npos);
}

TEST_F(ThreeImages, CommentAndRelatedRastersStayWithTheirIndex) {
  const PlayedSession played = Play(
      "input 0\nmenu Remove_an_image\n"
      "expect ImageBlock(0).ImageComment \"comment 1\"\nexpect ImageBlock(0).BandCount 0\n"
      "expect ImageBlock(1).ImageComment \"comment 2\"\nexpect ImageBlock(1).BandCount 1\n"
      "expect ImageBlock(1).ImageId 3\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(ThreeImages, TheMovedCamerasProjectAsBefore) {
  const std::string before = After(Play("call Object_To_Pixel 2 3 4 5\n"));
  const std::string after =
      After(Play("input 0\nmenu Remove_an_image\ncall Object_To_Pixel 1 3 4 5\n"));
  const auto results = [](const std::string& text) { return text.substr(text.rfind(" = ") + 3); };
  EXPECT_EQ(results(before), results(after));
}

TEST_F(ThreeImages, RemovingTheLastDoesNotMoveTheOthers) {
  const PlayedSession played = Play(
      "input 2\nmenu Remove_an_image\nexpect ImageCount 2\nexpect ImageBlock(1).ImageId 2\n"
      "print Label10\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(After(played).find("Label10 = Removed the last image from the set succesfully\n"),
            std::string::npos);
}

TEST_F(ThreeImages, TheOnlyImageIsTheLastAndTheSolutionStays) {
  const PlayedSession played =
      Play(std::string(kSetSolution) +
               "input 0\nmenu Remove_an_image\nexpect ImageCount 0\nexpect SolutionValid -1\n"
               "expect Label10 \"Removed the last image from the set succesfully\"\n"
               "expect Picture1(0).Visible 0\n",
           1);
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
}

TEST_F(ThreeImages, AnswerOf100RemovesAllAndInvalidatesTheSolution) {
  const PlayedSession played =
      Play(std::string(kSetSolution) +
           "input 100\nmenu Remove_an_image\nexpect ImageCount 0\nexpect SolutionValid 0\n"
           "expect CurrentImage -1\n"
           "expect Label10 \"Removed all images from the set succesfully\"\n"
           "expect Picture1(0).Visible 0\nexpect Picture1(2).Visible 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(ThreeImages, TheImagesThatStayAreCentredOnTheSolution) {
  const PlayedSession played =
      Play(std::string(kSetSolution) + "input 2\nmenu Remove_an_image\nmarks Picture1(0)\n");
  // The point of the centring and the image's scale number: 1000 - 160 over 0.1.
  EXPECT_NE(After(played).find("\"1    1:08400\""), std::string::npos) << played.transcript;
}

TEST_F(ThreeImages, NumbersOutsideTheSetChangeNothing) {
  for (const char* answer : {"3", "-1", "99", "101"}) {
    const PlayedSession played = Play("input " + std::string(answer) +
                                      "\nmenu Remove_an_image\nexpect ImageCount 3\n"
                                      "print Label10\n");
    EXPECT_EQ(After(played),
              Asked(2, "\"" + std::string(answer) + "\"") +
                  "message \"You've entered an image number outside acceptable range, remember, "
                  "numbering starts from zero\" title=\"\" buttons=ok -> ok\n"
                  "Label10 = Could not remove images with given input\n");
  }
}

TEST_F(ThreeImages, AnEmptyAnswerOrADismissedBoxEndsTheCommand) {
  for (const char* answer : {"input \"\"\n", "cancel\n"}) {
    const PlayedSession played = Play(std::string(answer) +
                                      "menu Remove_an_image\nexpect ImageCount 3\n"
                                      "expect Label10 \"3/3 images read\"\n");
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  }
}

TEST_F(ThreeImages, ANonNumericAnswerIsTheStatusLinesError) {
  for (const char* answer : {"abc", "40000", "\" \""}) {
    const PlayedSession played = Play("input " + std::string(answer) +
                                      "\nmenu Remove_an_image\nexpect ImageCount 3\n"
                                      "expect Label10 \"An error occurred in removing images\"\n");
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  }
}

std::string Add_Third_During(int serviced, const char* answer) {
  return "file c:\\data\\im3.hdr\ninput " + std::string(answer) + "\nduring " +
         std::to_string(serviced) + " menu Remove_an_image\ntry menu Add_images_to_set\n";
}

TEST_F(ThreeImages, RemovingAllWhileAnImageIsAddedLeavesAnEmptyBlock) {
  for (const int serviced : {1, 2, 3}) {
    const PlayedSession played =
        Play(Add_Third_During(serviced, "100") +
                 "expect ImageCount 0\nexpect SolutionValid 0\n"
                 "expect Label10 \"Removed all images from the set succesfully\"\n"
                 "expect Picture1(0).Visible 0\nexpect Picture1(1).Visible 0\n"
                 "expect Picture1(2).Visible 0\n",
             2);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    EXPECT_NE(played.transcript.find(
                  "error Add_images_to_set \"Subscript out of range: the image was removed while "
                  "the command was under way\"\n"),
              std::string::npos)
        << played.transcript;
  }
}

TEST_F(ThreeImages, AnImageIsAddedAfterThoseThatARemovalMeanwhileLeaves) {
  for (const int serviced : {1, 2}) {
    const PlayedSession played =
        Play(Add_Third_During(serviced, "0") +
                 "expect ImageCount 2\nexpect ImageBlock(0).ImageId 2\n"
                 "expect ImageBlock(1).ImageId 3\n"
                 "expect PaneViews(1) \"201 201 600 600 1 1\"\nexpect Picture1(1).Visible -1\n"
                 "expect Picture1(2).Visible 0\nexpect Label10 \"2/2 images read\"\n",
             2);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  }
}

TEST_F(ThreeImages, RemovingTheImageThatIsBeingAddedLeavesTheOthers) {
  const PlayedSession played = Play(Add_Third_During(1, "2") +
                                        "expect ImageCount 2\nexpect ImageBlock(0).ImageId 1\n"
                                        "expect ImageBlock(1).ImageId 2\n"
                                        "expect Picture1(2).Visible 0\n",
                                    2);
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
}

TEST_F(ThreeImages, AFailedAdditionKeepsARemovalThatRanDuringIt) {
  site.Folder().Write("c/data/im3.hdr", "3\n");
  const PlayedSession played = Play(Add_Third_During(1, "0") +
                                        "expect ImageCount 1\nexpect ImageBlock(0).ImageId 2\n"
                                        "expect Picture1(0).Visible -1\n"
                                        "expect Picture1(1).Visible 0\nexpect PaneWidth 944\n",
                                    2);
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_NE(played.transcript.find("error Add_images_to_set \"Input past end of file: "),
            std::string::npos);
}

// All fields of a record as text, by name.
struct FieldTexts {
  std::map<std::string, std::string> texts;

  template <class Number>
  static std::string Text(const Number& value) {
    return std::to_string(value);
  }
  template <std::size_t N>
  static std::string Text(const FixedText<N>& value) {
    return value.Padded();
  }
  template <class T, int First, int Last>
  static std::string Text(const Table<T, First, Last>& table) {
    std::string text;
    for (const T& value : table) text += Text(value) + ";";
    return text;
  }
  template <class Field>
  void operator()(const char* name, const Field& field) {
    texts[name] = Text(field);
  }
};

// Fills every field with a value specific to the image.
struct FieldFiller {
  int number;

  template <class Number>
  void Fill(Number& value) {
    value = static_cast<Number>(number++ % 250);
  }
  template <std::size_t N>
  void Fill(FixedText<N>& value) {
    value = "text " + std::to_string(number++);
  }
  template <class T, int First, int Last>
  void Fill(Table<T, First, Last>& table) {
    for (T& value : table) Fill(value);
  }
  template <class Field>
  void operator()(const char*, Field& field) {
    Fill(field);
  }
};

std::map<std::string, std::string> Fields(const ImageRecord& record) {
  FieldTexts texts;
  Visit_Image_Record(record, texts);
  return texts.texts;
}

struct FilledBlock : testing::Test, SyntheticBlock {
  void Fill(int images) {
    for (int k = 0; k < images; ++k) {
      FieldFiller filler{60 * k + 1};
      Visit_Image_Record(w.ImageBlock(k), filler);
      w.ImageBlock(k).ColorFlag = static_cast<std::uint8_t>(10 + k);
      w.ImageKinds(k) = static_cast<std::int16_t>(1 + k % 2);
      if (k < 9) {
        const auto n = static_cast<std::int16_t>(k);
        w.PaneViews(k) = {n, n, 40, 40, 1.0 + k, 2.0 + k};
      }
    }
    w.ImageCount = static_cast<std::int16_t>(images);
    w.Form1.ClientWidth = 1280;
    w.Form1.ClientHeight = 1024;
  }
};

TEST_F(FilledBlock, EveryFieldMovesExceptCommentRelatedRastersAndKind) {
  Fill(3);
  const std::set<std::string> stay = {"ImageComment", "BandCount", "BandFile",
                                      "BandType",     "BandWidth", "BandHeight"};
  std::map<std::string, std::string> before[3];
  for (int k = 0; k < 3; ++k) before[k] = Fields(w.ImageBlock(k));
  screen.inputs.emplace_back("1");
  Remove_an_image(w);
  EXPECT_EQ(w.ImageCount, 2);
  EXPECT_EQ(Fields(w.ImageBlock(0)), before[0]);
  for (const auto& [name, text] : Fields(w.ImageBlock(1))) {
    EXPECT_NE(before[1].at(name), before[2].at(name)) << name;
    EXPECT_EQ(text, before[stay.contains(name) ? 1 : 2].at(name)) << name;
  }
  EXPECT_EQ(w.ImageKinds(0), 1);
  EXPECT_EQ(w.ImageKinds(1), 2);
  EXPECT_EQ(w.PaneViews(1).ZoomX, 3);
  EXPECT_EQ(w.PaneViews(1).ZoomY, 4);
  EXPECT_EQ(w.RotationTable(1).m31, std::sin(w.ImageBlock(1).Phi));
}

TEST_F(FilledBlock, ATenthImageIsRemovedAsTheLastOne) {
  Fill(10);
  screen.inputs.emplace_back("9");
  Remove_an_image(w);
  EXPECT_EQ(w.ImageCount, 9);
}

TEST_F(FilledBlock, ATenthImageHasNoPaneToMoveToSoThatNothingMoves) {
  Fill(10);
  const auto before = Fields(w.ImageBlock(0));
  screen.inputs.emplace_back("0");
  Remove_an_image(w);
  EXPECT_EQ(w.ImageCount, 10);
  EXPECT_EQ(Fields(w.ImageBlock(0)), before);
  EXPECT_EQ(w.Form1.Label10.Caption, "An error occurred in removing images");
}

TEST_F(FilledBlock, FreedPanesLoseTheirPictures) {
  Fill(2);
  for (int k = 0; k < 2; ++k) {
    Load_Picture(w.Form1.Picture1(k), std::make_shared<const PaneBitmap>());
    Plot_Point(w.Form1.Picture1(k), 1, 1, {});
  }
  Remove_All_Images(w);
  for (int k = 0; k < 2; ++k) {
    EXPECT_EQ(w.Form1.Picture1(k).bitmap, nullptr);
    EXPECT_TRUE(Marks(k).empty());
  }
}

}  // namespace
}  // namespace sylvomex
