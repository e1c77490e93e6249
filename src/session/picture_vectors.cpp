// SPDX-License-Identifier: MIT
#include "session/picture_vectors.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <variant>
#include <vector>

#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "session/scale_bar.h"
#include "session/vector_page.h"
#include "state/workspace.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr int kBorder = 2;  // pixels, on each side of a picture's inside

PageSize Inner_Size(const Picture& picture) {
  const PageSize inner{static_cast<int>(std::lround(picture.Width)) - 2 * kBorder,
                       static_cast<int>(std::lround(picture.Height)) - 2 * kBorder};
  if (inner.width > 0 && inner.height > 0) return inner;
  if (picture.bitmap) return {picture.bitmap->width, picture.bitmap->height};
  throw RunTimeError(Failure::BadContent, "the picture has no size that a page can have");
}

/// The id of the image that a pane shows, empty for another picture.
std::string Shown_Id(const Workspace& w, const Picture& picture) {
  for (int k = 0; k < w.ImageCount; ++k) {
    if (&w.Form1.Picture1(k) == &picture) return Plain_Text(w.ImageBlock(k).ImageId);
  }
  return "";
}

std::vector<const Picture*> Shown_Pictures(Workspace& w, std::string_view form) {
  std::vector<const Picture*> pictures;
  const WindowRow* const window = Find_Window(form);
  if (window == nullptr) return pictures;
  Visit_Controls(window->record(w), window->design->controls,
                 [&](const ControlRow&, int, const AnyControl& control) {
                   Picture* const* const picture = std::get_if<Picture*>(&control);
                   if (picture != nullptr && (*picture)->Visible) pictures.push_back(*picture);
                 });
  return pictures;
}

}  // namespace

void Save_Picture_Vectors(const Workspace& w, const Picture& picture,
                          const std::filesystem::path& file) {
  const PageSize size = Inner_Size(picture);
  VectorPage page(file, size);
  page.Add({&picture, 0, 0, size, Scale_Bar_Of(w, picture)});
  page.Finish();
}

void Save_Window_Vectors(Workspace& w, std::string_view form, const std::filesystem::path& file) {
  std::vector<PlacedPicture> placed;
  for (const Picture* picture : Shown_Pictures(w, form)) {
    placed.push_back({picture, picture->Left + kBorder, picture->Top + kBorder,
                      Inner_Size(*picture), Scale_Bar_Of(w, *picture), Shown_Id(w, *picture)});
  }
  if (placed.empty()) {
    throw RunTimeError(Failure::BadContent, std::string(form) + " shows no picture");
  }
  double left = placed.front().left, top = placed.front().top, right = left, bottom = top;
  for (const PlacedPicture& one : placed) {
    left = std::min(left, one.left);
    top = std::min(top, one.top);
    right = std::max(right, one.left + one.size.width);
    bottom = std::max(bottom, one.top + one.size.height);
  }
  VectorPage page(
      file, {static_cast<int>(std::ceil(right - left)), static_cast<int>(std::ceil(bottom - top))});
  for (PlacedPicture& one : placed) {
    one.left -= left;
    one.top -= top;
    page.Add(one);
  }
  page.Finish();
}

}  // namespace sylvomex
