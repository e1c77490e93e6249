// SPDX-License-Identifier: MIT
#include "state/followed_image.h"

#include "platform/run_time_error.h"
#include "state/workspace.h"

namespace sylvomex {

FollowedImage::FollowedImage(Workspace& w, int image) : w_(w), index_(image) {
  w_.FollowedImages.push_back(this);
}

FollowedImage::~FollowedImage() { std::erase(w_.FollowedImages, this); }

int FollowedImage::Index() const {
  if (Is_There()) return index_;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "the image was removed while the command was under way");
}

void FollowedImage::After_Removal_Of(int image) {
  if (index_ == image) {
    index_ = -1;
  } else if (index_ > image) {
    --index_;
  }
}

}  // namespace sylvomex
