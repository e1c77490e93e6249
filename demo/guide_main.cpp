// SPDX-License-Identifier: MIT
// Pictures of the guide: those of the window with its aids, and any other made smaller.
#include <QApplication>
#include <cstring>
#include <iostream>

#include "demo/guide/guide_picture.h"
#include "demo/guide/guide_windows.h"
#include "desktop/dialog_layout.h"
#include "desktop/windows.h"
#include "platform/run_time_error.h"

namespace {

constexpr const char* kUsage =
    "sylvomex_demo_guide --windows SITE FOLDER       aids.png and overlays.png\n"
    "sylvomex_demo_guide PICTURE FILE WIDTH [HEIGHT] a picture made so wide, in few colours; of "
    "it\n"
    "                                                the upper HEIGHT pixels before\n";

using namespace sylvomex::demo;

bool Write_Windows(const std::filesystem::path& site, const QString& folder) {
  return Write_Guide_Picture(Aids_Picture(site), {}, 0, folder + QStringLiteral("/aids.png")) &&
         Write_Guide_Picture(Overlays_Picture(site), {}, 0,
                             folder + QStringLiteral("/overlays.png"));
}

bool Write_Smaller(int count, char** words) {
  const QImage picture(QString::fromLocal8Bit(words[1]));
  if (picture.isNull()) return false;
  const int height = count > 4 ? std::atoi(words[4]) : picture.height();
  return Write_Guide_Picture(picture, {0, 0, picture.width(), height}, std::atoi(words[3]),
                             QString::fromLocal8Bit(words[2]));
}

}  // namespace

int main(int count, char** words) try {
  if (count < 4) {
    std::cerr << kUsage;
    return 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, words);
  sylvomex::Set_Application_Look();
  const bool is_done = std::strcmp(words[1], "--windows") == 0
                           ? Write_Windows(words[2], QString::fromLocal8Bit(words[3]))
                           : Write_Smaller(count, words);
  if (!is_done) std::cerr << "no picture could be made of " << words[1] << " " << words[2] << '\n';
  return is_done ? 0 : 1;
} catch (const sylvomex::RunTimeError& failure) {
  std::cerr << failure.what() << '\n';
  return 1;
}
