// SPDX-License-Identifier: MIT
#include "desktop_aids/pane_heads.h"

#include <QFontMetrics>
#include <algorithm>

#include "desktop/control_widgets.h"
#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

constexpr int kRoomyPane = 290;     // pixels; from there on nothing reaches the next pane
constexpr int kTick = 16;           // without its caption, which is its tip then
constexpr int kTickToCaption = 10;  // from the tick's edge to its caption, and behind it
constexpr int kReadOut = 92;        // a column and a row
constexpr int kGap = 2;

}  // namespace

PaneHeads::PaneHeads(const AidedPanes& panes) : panes_(panes) {
  Form1State& form = panes.Block().Form1;
  for (int k = 0; k < kAidedPanes; ++k) {
    parts_[&form.Text1(2 * k)] = {Part::FilmX, k};
    parts_[&form.Text1(2 * k + 1)] = {Part::FilmY, k};
    parts_[&form.Text12(k)] = {Part::Position, k};
    parts_[&form.Check1(k)] = {Part::Use, k};
    parts_[&form.Label1(k)] = {Part::ReadOut, k};
  }
  panes.Owner().Shown().Main().Place_By([this](const Control& record, const QRect& own) {
    const auto part = parts_.find(&record);
    return part == parts_.end() ? own : Within(part->second, own);
  });
}

int PaneHeads::Width_Of_Tick(int pane, int room) const {
  const QString caption = Caption_Text(panes_.Block().Form1.Check1(pane).Caption);
  const int whole =
      kTick + kTickToCaption + QFontMetrics(Control_Font()).horizontalAdvance(caption);
  return room - whole >= kReadOut ? whole : kTick;
}

QRect PaneHeads::Within(const Place& place, const QRect& own) const {
  const Workspace& w = panes_.Block();
  const int left = static_cast<int>(w.Form1.Picture1(place.pane).Left);
  const int room = w.PaneWidth;
  if (room >= kRoomyPane || room <= 0 || place.pane >= w.ImageCount) return own;
  const int box = std::min(own.width(), (room - 2 * kGap) / 3);
  const int tick = Width_Of_Tick(place.pane, room);
  QRect within = own;
  switch (place.part) {
    case Part::FilmX:
    case Part::FilmY:
    case Part::Position:
      within.setWidth(box);
      within.moveLeft(left + static_cast<int>(place.part) * (box + kGap));
      break;
    case Part::Use:
      within.setWidth(tick);
      within.moveLeft(left + room - tick);
      break;
    case Part::ReadOut:
      within.setWidth(room - tick - kGap);
      break;
  }
  return within;
}

}  // namespace sylvomex
