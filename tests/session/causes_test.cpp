// SPDX-License-Identifier: MIT
// What standard error tells behind the messages whose fixed texts name no cause. The transcript
// has only the fixed texts.
#include <gtest/gtest.h>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

struct SessionCauses : testing::Test {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();
  PlayedSession played;

  void Play(const std::string& script) { played = Play_Script(folder, script); }

  void Expect_Cause(const std::string& cause) {
    EXPECT_NE(played.reason.find("sylvomex: " + cause), std::string::npos)
        << "missing: " << cause << "\nin: " << played.reason;
    EXPECT_EQ(played.transcript.find("sylvomex: "), std::string::npos) << played.transcript;
  }
  void Expect_Message(const std::string& text) {
    EXPECT_NE(played.transcript.find("message \"" + text), std::string::npos)
        << "missing: " << text << "\nin: " << played.transcript << played.reason;
  }
  std::string Add(const std::string& name, const SmallImage& image = {}) {
    return "file " + site.Write_Image(name, image) + "\nmenu Add_images_to_set\n";
  }
};

TEST_F(SessionCauses, ARasterModelNamesItsCellFileAndTheHeaderThatHoldsTheName) {
  folder.Write("c/data/dem.hdr", "2\n2\n0\n0\n1\n0\nc:\\data\\none.bin\n");
  Play("file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n");
  Expect_Message("An error occurred, resuming");
  Expect_Cause("the name stands in c:\\data\\dem.hdr");
  Expect_Cause("File not found: c:\\data\\none.bin (" + folder.Path().string());
}

TEST_F(SessionCauses, ARasterModelNamesTheItemThatIsNoNumber) {
  folder.Write("c/data/chm.hdr", "2\ntwo\n0\n0\n1\n0\nc:\\data\\none.bin\n");
  Play("file c:\\data\\chm.hdr\nmenu Add_Raster_CHM\n");
  Expect_Cause("Type mismatch: c:\\data\\chm.hdr, line 2, item 2: \"two\" is not a number");
}

TEST_F(SessionCauses, AnImageWithoutItsRawFileNamesTheHeader) {
  site.Write_Image("a", {});
  std::filesystem::remove(folder.Path() / "c/data/a.raw");
  Play("file c:\\data\\a.hdr\ntry menu Add_images_to_set\n");
  EXPECT_NE(played.transcript.find("error Add_images_to_set \"File not found: c:\\data\\a.raw\""),
            std::string::npos)
      << played.transcript;
  Expect_Cause("the name stands in c:\\data\\a.hdr");
}

TEST_F(SessionCauses, AWarningOfAHeaderNamesFileAndItem) {
  SmallImage image;
  image.colour = 2;
  Play(Add("a", image));
  Expect_Message("Image (0-(N-1)): 0Parameter: image color:2 in set file");
  Expect_Cause("c:\\data\\a.hdr, item 5");
}

TEST_F(SessionCauses, AHitNamesTheFileThatHoldsTheHeadersName) {
  folder.Write("c/data/ImaFiles/p.txt", "1,c:\\data\\none.hdr,1,2,3\n");
  Play("file c:\\data\\ImaFiles\\p.txt\ntry menu Add_Image_Center_to_XYZ\n");
  Expect_Cause("the name stands in c:\\data\\ImaFiles\\p.txt");
}

TEST_F(SessionCauses, ATerrestrialSearchNamesTheTablesLine) {
  folder.Make_Folder("c/data/G6/ImaFiles");
  folder.Write("c/data/cam_data_G6_j.csv",
               "1,-,0.2,0,0,0,0,0,1000,a,b.hdr,c\n\n2,-,0.007,0,0,0,0,0,100,a,c:\\none.hdr,c\n");
  Play("try menu Find_And_Read_Terr_Images_in_Which\n");
  Expect_Cause("the name stands in c:\\data\\cam_data_G6_j.csv, line 3");
}

TEST_F(SessionCauses, AMapNamesTheHeaderThatHoldsTheNameOfItsPixels) {
  folder.Write("c/data/map.hdr", "c:\\data\\none.raw\n0\n0\n1\n1\n10\n10\n0\n");
  Play("menu Open_Map_Window\nfile c:\\data\\map.hdr\ntry menu Form8.Open_a_Map\n");
  Expect_Cause("the name stands in c:\\data\\map.hdr");
}

TEST_F(SessionCauses, ALidarTileNamesThePathHeader) {
  folder.Write("c/data/JetColorMAP.csv", "1,2,3\n");
  folder.Write("c/data/als2007_path.hdr", "c:\\none\\\n");
  Play("try menu Plot_ALS_2007\n");
  Expect_Cause("the name stands in c:\\data\\als2007_path.hdr");
}

TEST_F(SessionCauses, APointFileNamesLineAndItem) {
  folder.Write("c/data/p.txt", "\n7,1,north,3\n");
  Play("file c:\\data\\p.txt\nmenu Set_3D_Sol_File\n");
  Expect_Message("Cannot convert Input into a 3D-solution!");
  Expect_Cause("Type mismatch: c:\\data\\p.txt, line 2, item 3: \"north\" is not a number");
}

TEST_F(SessionCauses, AnAnswerThatIsNoNumberIsNamedWithItsQuestion) {
  Play("input 1\ninput two\nmenu Set_3D_solution\n");
  Expect_Cause("Y-value to be assigned");
  Expect_Cause("Type mismatch: \"two\" is not a number");
}

TEST_F(SessionCauses, BoxesOfTheWindowsAreNamed) {
  Play("menu Open_Options_Window\nset Form2.Text7 loud\nmenu Form2.Apply\n");
  Expect_Cause("Type mismatch: Text7: \"loud\" is not a number");
  Play(
      "menu Save_measured_point\nset Form3.Text2 300\n"
      "press Form3.Accept_And_Save_Button\n");
  Expect_Cause("Text2, the species");
  Expect_Cause("Overflow: 300 is not in 0 to 255");
  Play(
      "menu Save_measured_point\nset Form3.Text4 a_comment_of_more_than_thirty_characters\n"
      "press Form3.Accept_And_Save_Button\n");
  Expect_Cause("Text4 has 40 characters");
}

TEST_F(SessionCauses, ARecordThatCannotBeWrittenNamesTheReason) {
  Play(
      "menu Save_measured_point\nset Form3.Text5 c:\\none\\points.txt\n"
      "press Form3.Accept_And_Save_Button\n");
  Expect_Message("An error occurred in writing the data (record) into file c:\\none\\points.txt");
  Expect_Cause("Path not found: c:\\none\\points.txt (" + folder.Path().string());
}

TEST_F(SessionCauses, AnOverflowOfAViewNamesImageAndQuantity) {
  Play(Add("a") + "set Text1(0) 0.9\nset Text1(1) 0\nmenu Zoom_1_1\n");  // column 90500
  Expect_Message("Error in aZoom-function.");
  Expect_Cause("the centre in raw pixels");
  Expect_Cause("Overflow: image 0 (1): 90500 is not in -32768 to 32767");
}

TEST_F(SessionCauses, CentringNamesTheAnswerThatIsNoNumber) {
  Play(Add("a") + "input here\nmenu Center_To_Q\n");
  Expect_Message("An error occurred in sub Error_in_center_to_sub_c_Click() ");
  Expect_Cause("the answer to Give Col");
}

TEST_F(SessionCauses, CentringNamesTheImageWhoseCentreOverflows) {
  SmallImage shifted;
  shifted.id = 2;
  shifted.sub_col_origin = -40000;  // the raw column is 40000 more than the full image's 500
  Play(Add("a") + Add("b", shifted) +
       "input 0\ninput 0\ninput 0\nmenu Set_3D_solution\nmenu Center_to_xyz_click\n");
  Expect_Message("An error occurred in sub Center_to_xyz_Click() ");
  Expect_Cause("the centre in raw pixels");
  Expect_Cause("image 1 (2)");
  Expect_Cause("Overflow: 40500 is not in -32768 to 32767");
}

TEST_F(SessionCauses, AViewLargerThanTheRawFileTellsBothSizes) {
  SmallImage image;
  image.width = image.height = 300;
  Play(Add("a", image));
  Expect_Message("Pan window is too large");
  Expect_Cause("image 0 (1): a view of 944 x 944 pixels, the raw file has 300 x 300");
}

TEST_F(SessionCauses, AnOrthoimageThatFailsTellsWhy) {
  folder.Write("c/data/dem.bin", std::string(16, '\0'));
  folder.Write("c/data/dem.hdr", "2\n2\n0\n0\n1\n0\nc:\\data\\dem.bin\n");
  Play("file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n" + Add("a") +
       "input 0\ninput 0\ninput 0\ninput 1\ninput 1\ninput 0\ninput 160\ncancel\ntry menu Orto\n");
  Expect_Message("An error occurred, too wide orthoimage?");
  Expect_Cause("Division by zero: the pixel size of the orthoimage is 0");
}

TEST_F(SessionCauses, ATriangulatedModelNamesFileAndTriangle) {
  folder.Write("c/data/t.nod", "100,100,1\n200,100,1\n100,200,1\n300,100,1\n");
  folder.Write("c/data/t.tri", "0,1,2\n0,1,3\n");  // the second has no extent
  Play("file c:\\data\\t.nod\nfile c:\\data\\t.tri\nmenu Add_Tin\n");
  Expect_Message("Cant divide with zero!");
  Expect_Cause("c:\\data\\t.tri, triangle 2");
}

TEST_F(SessionCauses, AnOrthoimageTooLargeNamesTheQuantity) {
  Play(Add("a") + "input 0\ninput 0\ninput 1e12\ninput 1\ninput 0.1\ntry menu OrthoBlock\n");
  Expect_Cause("columns and rows of the orthoimage");
}

TEST_F(SessionCauses, AMapBeyondItsPlaceNamesTheView) {
  folder.Make_Folder("f");
  folder.Write("c/data/map.raw", std::string(3 * 200 * 150, 'm'));
  folder.Write("c/data/map.hdr", "c:\\data\\map.raw\n0\n0\n1\n1\n200\n150\n0\n");
  Play(
      "menu Open_Map_Window\nresize Form8 100 80\nfile c:\\data\\map.hdr\n"
      "menu Form8.Open_a_Map\ntry click Form8.Picture1 90 70 right\n");
  if (played.transcript.find("exceeding allowed indeces") == std::string::npos) {
    FAIL() << played.transcript << played.reason;
  }
  Expect_Cause("a view from column");
  const std::string cause = "sylvomex: a view from column";
  EXPECT_EQ(played.reason.find(cause), played.reason.rfind(cause));  // once for all pixels
}

TEST_F(SessionCauses, RemovingTellsTheAnswer) {
  Play(Add("a") + "input seven\nmenu Remove_an_image\ninput 3\nmenu Remove_an_image\n");
  Expect_Cause("Type mismatch: \"seven\" is not a number");
  Expect_Cause("image 3 of 1");
}

}  // namespace
}  // namespace sylvomex
