// SPDX-License-Identifier: MIT
#pragma once

#include "state/cause.h"

namespace sylvomex {

/// About with the name of an image and what is done with it. The name is made for a failure only:
/// for what each measurement does several times.
template <class Action>
decltype(auto) About_Image(const Workspace& w, int image, const char* what, Action&& action) {
  try {
    return action();
  } catch (const RunTimeError&) {
    Tell_Cause(w, Name_Of_Image(w, image) + what);
    throw;
  }
}

}  // namespace sylvomex
