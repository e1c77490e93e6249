// SPDX-License-Identifier: MIT
// An image on its way into the block, which can be taken out again.
#pragma once

#include "platform/work_meter.h"
#include "state/followed_image.h"
#include "state/workspace.h"

namespace sylvomex {

/// Remembers what the next image will replace. Removals that run meanwhile stay in effect.
class ImageAddition {
 public:
  /// image: follows the image that is to be added, from index w.ImageCount on; must outlive it.
  ImageAddition(Workspace& w, const FollowedImage& image);

  /// Removes the image from the block and restores what it replaced.
  void Undo();

  /// Runs steps(), and Undo when they are cancelled.
  template <class Steps>
  void Undo_When_Cancelled(Steps&& steps) {
    try {
      steps();
    } catch (const Cancelled&) {
      Undo();
      throw;
    }
  }

 private:
  void Restore_Tables();

  Workspace& w_;
  const FollowedImage& image_;
  std::int16_t count_;
  ImageRecord record_;
  std::int16_t kind_;
  RotationMatrix rotation_;
  PaneView view_;
  std::int16_t pane_width_;
  std::int16_t pane_height_;
};

}  // namespace sylvomex
