// SPDX-License-Identifier: MIT
#include "commands/imageblock/image_addition.h"

#include "commands/imageblock/block_maintenance.h"
#include "panes/pane_layout.h"

namespace sylvomex {
namespace {

constexpr int kMostPanes = 9;

}  // namespace

ImageAddition::ImageAddition(Workspace& w, const FollowedImage& image)
    : w_(w),
      image_(image),
      count_(w.ImageCount),
      record_(w.ImageBlock(count_)),
      kind_(w.ImageKinds(count_)),
      rotation_(w.RotationTable(count_)),
      pane_width_(w.PaneWidth),
      pane_height_(w.PaneHeight) {
  if (count_ < kMostPanes) view_ = w.PaneViews(count_);
}

void ImageAddition::Undo() {
  if (!image_.Is_There()) return;
  Take_Out_Image(w_, image_.Index());
  if (w_.ImageCount == count_) Restore_Tables();
  Compute_Pane_Size(w_);
  Lay_Out_Panes(w_);
}

void ImageAddition::Restore_Tables() {
  w_.ImageBlock(count_) = record_;
  w_.ImageKinds(count_) = kind_;
  w_.RotationTable(count_) = rotation_;
  if (count_ < kMostPanes) w_.PaneViews(count_) = view_;
  w_.PaneWidth = pane_width_;
  w_.PaneHeight = pane_height_;
}

}  // namespace sylvomex
