// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Follows one image of the block through a running command. Events serviced by the command may
/// remove images, which shifts the later indices down; a followed image knows its current index or
/// that it was removed.
class FollowedImage {
 public:
  /// image: its current index, or the index at which it is about to be added.
  FollowedImage(Workspace& w, int image);
  ~FollowedImage();
  FollowedImage(const FollowedImage&) = delete;
  FollowedImage& operator=(const FollowedImage&) = delete;

  [[nodiscard]] bool Is_There() const { return index_ >= 0; }

  /// RunTimeError(SubscriptOutOfRange) when the image was removed.
  [[nodiscard]] int Index() const;

  /// Called when the image at an index has been removed from the block.
  void After_Removal_Of(int image);

 private:
  Workspace& w_;
  int index_;  // -1: removed
};

}  // namespace sylvomex
