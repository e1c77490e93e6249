// SPDX-License-Identifier: MIT
// How an import or export ends early. The text is one sentence for the operator that names the file
// at fault.
#pragma once

#include <stdexcept>

namespace sylvomex {

/// The input is missing, damaged or contradicts itself; nothing was written.
class Refused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The input was accepted, and the writing failed: a full disk, a folder that may not be written
/// to.
class FailedOnTheWay : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace sylvomex
