// SPDX-License-Identifier: MIT
#include "desktop/script_windows.h"

#include <gtest/gtest.h>

#include <QMenuBar>
#include <sstream>

#include "session/session.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class ScriptedScreenshot : public testing::Test {
 protected:
  int Play(const std::string& script) {
    std::istringstream in(script);
    ScriptWindows windows(false);
    SessionHooks hooks;
    hooks.pictures = &windows;
    hooks.before_start = [&](Workspace& w) { windows.Take_Block(w); };
    SessionOptions options;
    options.script = "-";
    options.root = site_.Folder().Path();
    options.width = 900;
    options.height = 650;
    return Run_Session(options, {in, out_, err_}, hooks);
  }

  QImage Picture(const char* name) const {
    return QImage(QString::fromStdString((site_.Folder().Path() / name).string()));
  }

  SmallSite site_;
  std::ostringstream out_, err_;
};

TEST_F(ScriptedScreenshot, HasTheClientSizeAndTheMenuBar) {
  const std::string file = (site_.Folder().Path() / "window.png").string();
  EXPECT_EQ(Play("screenshot " + file + "\n"), 0) << err_.str();
  const QImage image = Picture("window.png");
  EXPECT_EQ(image.width(), 900);
  EXPECT_GT(image.height(), 650);
  EXPECT_LT(image.height(), 700);
}

TEST_F(ScriptedScreenshot, ShowsTheMarksOfAPane) {
  site_.Write_Image("a", {});
  const std::string file = (site_.Folder().Path() / "window.png").string();
  EXPECT_EQ(Play("file c:\\data\\a.hdr\nmenu Add_images_to_set\nclick Picture1(0) 100 50\n"
                 "screenshot Form1 " +
                 file + "\n"),
            0)
      << err_.str();
  // The cross of a measuring click: its left arm covers 95 to 98 in the pane, which starts at 3 +
  // 2, 96 + 2 in the client area; the client area ends the window's picture.
  const QImage image = Picture("window.png");
  const int client_top = image.height() - 650;
  EXPECT_EQ(image.pixel(3 + 2 + 96, client_top + 96 + 2 + 50), qRgb(5, 255, 211));
}

TEST_F(ScriptedScreenshot, OfAnUnknownWindowFailsTheStep) {
  EXPECT_EQ(Play("screenshot Form99 x.png\n"), 1);
}

TEST_F(ScriptedScreenshot, IntoAMissingFolderFailsTheStep) {
  EXPECT_EQ(Play("screenshot /no/such/folder/x.png\n"), 1);
}

}  // namespace
}  // namespace sylvomex
