// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// An image of the block as a command under way means it. Events that the command services may
/// remove images: those behind move down, and a followed image tells its new index or that it is
/// gone.
class FollowedImage {
 public:
  /// image: its index now, or the one at which it is about to be added.
  FollowedImage(Workspace& w, int image);
  ~FollowedImage();
  FollowedImage(const FollowedImage&) = delete;
  FollowedImage& operator=(const FollowedImage&) = delete;

  [[nodiscard]] bool Is_There() const { return index_ >= 0; }

  /// RunTimeError(SubscriptOutOfRange) when the image was removed.
  [[nodiscard]] int Index() const;

  /// For the removal of images: the image at an index has left the block.
  void After_Removal_Of(int image);

 private:
  Workspace& w_;
  int index_;  // -1: gone
};

}  // namespace sylvomex
