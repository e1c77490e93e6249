// SPDX-License-Identifier: MIT
#include <algorithm>

#include "desktop_fixture.h"
#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

class Recording : public DesktopTest {
 protected:
  Recording() { Start(site_.Folder().Path() / "session.txt"); }

  [[nodiscard]] bool Has_Line(const std::string& line) const {
    const std::string text = "\n" + site_.Folder().Read("session.txt");
    return text.find("\n" + line + "\n") != std::string::npos;
  }
};

TEST_F(Recording, BeginsWithTheSizeOfTheWindow) { EXPECT_TRUE(Has_Line("resize Form1 1000 700")); }

TEST_F(Recording, WritesClicksKeysAndBoxesAsSteps) {
  Add_Two_Images();
  Click_Pane(0, 100, 50);
  Press_Key(Qt::Key_U);
  QTest::mouseClick(&Get<QCheckBox>("Check3"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(Has_Line("menu Add_images_to_set"));
  EXPECT_TRUE(Has_Line("file " + std::string("c:\\data\\a.hdr")));
  EXPECT_TRUE(Has_Line("click Picture1(0) 100 50"));
  EXPECT_TRUE(Has_Line("key U"));
  EXPECT_TRUE(Has_Line("set Check3 1"));
}

TEST_F(Recording, ThatIsLostOnAFullDiskIsToldOnce) {
  const FileSizeLimit limit(std::filesystem::file_size(site_.Folder().Path() / "session.txt"));
  for (const char* item : {"Zoom_1_1", "Zoom_1_2"}) Choose(item);
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  std::string message = dialogs_.messages[0];
  std::replace(message.begin(), message.end(), '\n', ' ');
  EXPECT_NE(message.find("the record is not complete"), std::string::npos) << message;
}

TEST_F(Recording, ToAFileThatCannotBeWrittenFailsTheStart) {
  EXPECT_THROW(Start(site_.Folder().Path() / "no" / "session.txt"), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
