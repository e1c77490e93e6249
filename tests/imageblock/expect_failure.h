// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

/// Runs the call, which must throw a RunTimeError of the kind, and returns its text.
template <class Call>
std::string Expect_Failure(Failure kind, Call&& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(Failure_Text(error.Kind()), Failure_Text(kind)) << error.what();
    return error.what();
  }
  ADD_FAILURE() << "no " << Failure_Text(kind);
  return {};
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace sylvomex
