// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "hwy/highway.h"

namespace sylvomex {

/// Runs a check on each vector unit of this machine.
class OnEveryVectorUnit : public testing::Test {
 protected:
  ~OnEveryVectorUnit() override {
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().DeInit();
  }

  template <class Check>
  void Run(const Check& check) {
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
      SCOPED_TRACE(hwy::TargetName(target));
      hwy::SetSupportedTargetsForTest(target);
      hwy::GetChosenTarget().Update(hwy::SupportedTargets());
      check();
    }
  }
};

}  // namespace sylvomex
