// SPDX-License-Identifier: MIT
#include "state/cause.h"

#include <gtest/gtest.h>

#include <new>

#include "support/failure_of.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct Causes : SyntheticBlock, testing::Test {};

TEST_F(Causes, AFailureIsItsTextWithTheNativePathOfItsFile) {
  EXPECT_EQ(Cause_Text(RunTimeError(Failure::FileNotFound, "c:\\a.hdr", "/x/c/a.hdr")),
            "File not found: c:\\a.hdr (/x/c/a.hdr)");
  EXPECT_EQ(Cause_Text(RunTimeError(Failure::FileNotFound, "/x/c/a.hdr", "/x/c/a.hdr")),
            "File not found: /x/c/a.hdr");
  EXPECT_EQ(Cause_Text(RunTimeError(Failure::Overflow, "7 is too large")),
            "Overflow: 7 is too large");
  EXPECT_EQ(Cause_Text(std::bad_alloc()), "Out of memory");
}

TEST_F(Causes, AreToldBeforeTheirMessage) {
  Show_With_Cause(w, "An error occurred!", "image 2");
  EXPECT_EQ(screen.causes, std::vector<std::string>{"image 2"});
  EXPECT_EQ(screen.messages, std::vector<std::string>{"An error occurred!"});
}

TEST_F(Causes, ImagesAreNamedByIndexAndId) {
  Add_Camera(0, 0, 1000);
  EXPECT_EQ(Name_Of_Image(w, 0), "image 0 (100)");
  EXPECT_EQ(Name_Of_Image(w, 1), "image 1");
  EXPECT_EQ(Name_Of_Image(w, -1), "image -1");
}

TEST_F(Causes, WhatAFailureIsAboutIsToldAndTheFailureStays) {
  EXPECT_EQ(About(w, "its width", [] { return 7; }), 7);
  EXPECT_TRUE(screen.causes.empty());
  EXPECT_EQ(Failure_Of([&] {
              Named_In(w, "c:\\a.hdr", [] { throw RunTimeError(Failure::FileNotFound, "x"); });
            }),
            "File not found: x");
  EXPECT_EQ(screen.causes, std::vector<std::string>{"the name stands in c:\\a.hdr"});
}

}  // namespace
}  // namespace sylvomex
