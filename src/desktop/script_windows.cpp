// SPDX-License-Identifier: MIT
#include "desktop/script_windows.h"

#include <QBuffer>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>
#include <stdexcept>

#include "desktop/open_display.h"
#include "platform/replacing_file.h"

namespace sylvomex {

void ScriptWindows::Make_Windows() {
  if (windows_) return;
  if (QApplication::instance() == nullptr) {
    if (!on_screen_) qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = Open_Display(argument_count_, arguments_);
    Set_Application_Look();
  }
  windows_ = std::make_unique<Windows>(*this, *w_);
}

void ScriptWindows::Show() {
  Make_Windows();
  windows_->Mirror();
  QApplication::processEvents();
}

void ScriptWindows::Wait(double seconds) {
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
  loop.exec();
}

void ScriptWindows::Save_Window(const std::string& form, const std::filesystem::path& file) {
  Make_Windows();
  FormWindow* window = windows_->Find(form);
  if (window == nullptr) throw std::runtime_error("there is no window " + form);
  window->Mirror_Unshown();
  QByteArray png;
  QBuffer buffer(&png);
  if (!buffer.open(QIODevice::WriteOnly) || !window->grab().save(&buffer, "PNG")) {
    throw std::runtime_error("no picture of " + form + " can be made");
  }
  Replace_Whole_File({file.string(), file}, {reinterpret_cast<const std::uint8_t*>(png.constData()),
                                             static_cast<std::size_t>(png.size())});
}

const QCursor& ScriptWindows::Custom_Cursor(const std::string&) {
  static const QCursor cross(Qt::CrossCursor);
  return cross;
}

}  // namespace sylvomex
