// SPDX-License-Identifier: MIT
// What the tests of the product commands share.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

#include "support/file_size_limit.h"
#include "support/flat_model.h"
#include "support/session_run.h"
#include "support/wide_images.h"

namespace sylvomex {

using Rgb = std::array<int, 3>;

class ProductsTest : public testing::Test {
 protected:
  static std::string Answers(std::initializer_list<const char*> answers) {
    std::string script;
    for (const char* answer : answers) script += std::string("input ") + answer + "\n";
    return script;
  }

  static std::string Load(std::initializer_list<const char*> images) {
    std::string script;
    for (const char* image : images) {
      script += std::string("file c:\\data\\") + image + ".hdr\nmenu Add_images_to_set\n";
    }
    return script;
  }

  PlayedSession Play(const std::string& script) const { return Play_Script(site.Folder(), script); }

  /// Three bytes of a file, counted in pixels.
  [[nodiscard]] Rgb Pixel(const std::string& file, std::size_t pixel) const {
    const std::string bytes = site.Folder().Read(file);
    const auto byte = [&](std::size_t k) {
      return static_cast<std::uint8_t>(bytes.at(3 * pixel + k));
    };
    return {byte(0), byte(1), byte(2)};
  }

  /// The colour of a pixel of a SmallSite image.
  static Rgb Colour_At(int col, int raw_row) { return {col % 251, raw_row % 241, 7}; }

  static bool Has(const PlayedSession& played, const std::string& text) {
    return played.transcript.find(text) != std::string::npos;
  }

  SmallSite site;
};

}  // namespace sylvomex
