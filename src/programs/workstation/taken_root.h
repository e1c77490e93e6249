// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/guest_files.h"
#include "platform/root_lock.h"

namespace sylvomex {

/// The root on which this desktop works, and how.
struct TakenRoot {
  std::filesystem::path root;
  std::unique_ptr<RootLock> lock;
  std::optional<GuestFiles> guest;  // when another program works on it

  /// Whether this program is the only one on it.
  [[nodiscard]] bool Is_Own() const { return !guest; }
};

/// Takes a root. For one that another program uses, the operator chooses another one, or only to
/// look, or to quit, which is false. asks: false works on a used root as a script does, with a
/// line on standard error.
bool Take_Root(TakenRoot& taken, std::filesystem::path root, bool asks);

}  // namespace sylvomex
