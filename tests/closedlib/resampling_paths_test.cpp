// SPDX-License-Identifier: MIT
// Normalised images by segments, on each path and vector unit, compared with the definition.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <numbers>
#include <string>

#include "closedlib/plain_normalized_image.h"
#include "closedlib/resampling_by_path.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

std::vector<SegmentPath> All_Paths() {
  std::vector<SegmentPath> paths{Interpolate_Segments};
  if (const SegmentPath tables = Byte_Table_Path()) paths.push_back(tables);
  return paths;
}

struct View {
  std::string name;
  double omega, phi, kappa;  // degrees
  double scale;              // source pixels a target pixel
};

/// A frame of 431 x 283 pixels, seen by a target of 397 x 301 about its middle.
NormalizedImage Turned(const View& view, bool colour) {
  constexpr double kPixel = 1e-5;
  NormalizedImage image;
  image.c = 0.02;
  image.width = 397;
  image.height = 301;
  image.full_width = 431;
  image.full_height = 283;
  image.PixelWidth = kPixel * view.scale;
  image.Xmin = -198.3 * image.PixelWidth;
  image.Ymax = 150.1 * image.PixelWidth;
  image.colour = colour;
  image.affine = {1 / kPixel, 40, 215.2, -30, 1 / kPixel, 141.4};
  const auto radians = [](double degrees) { return degrees * std::numbers::pi / 180; };
  const double co = std::cos(radians(view.omega)), so = std::sin(radians(view.omega));
  const double cp = std::cos(radians(view.phi)), sp = std::sin(radians(view.phi));
  const double ck = std::cos(radians(view.kappa)), sk = std::sin(radians(view.kappa));
  image.matrix = {cp * ck,
                  co * sk + so * sp * ck,
                  so * sk - co * sp * ck,
                  -cp * sk,
                  co * ck - so * sp * sk,
                  so * ck + co * sp * sk,
                  sp,
                  -so * cp,
                  co * cp};
  return image;
}

std::vector<View> All_Views() {
  std::vector<View> views{
      {"far turned", 1, 1, 20, 1},     {"a quarter", 1, -2, 90, 1},       {"half", 1, -1, 180.5, 1},
      {"half, wide", -3, 2, 177, 1.2}, {"half, narrow", 5, 5, 184, 0.82}, {"coarse", 1, 1, 1, 2},
      {"steep", 40, 30, 5, 1}};
  for (const double omega : {-5.0, 0.7, 5.0}) {
    for (const double kappa : {-5.0, -0.02, 1.7, 5.0}) {
      for (const double scale : {0.8, 1.0, 1.03, 1.25}) {
        views.push_back({"level", omega, -0.6 * omega, kappa, scale});
      }
    }
  }
  return views;
}

void Expect_Definition(const NormalizedImage& image, const Bytes& source, const Bytes& target) {
  const int channels = image.colour ? 3 : 1;
  std::size_t at = 0;
  for (int j = 0; j < image.height; ++j) {
    for (int i = 0; i < image.width; ++i) {
      for (int channel = 0; channel < channels; ++channel, ++at) {
        ASSERT_NEAR(target[at], Plain_Value(image, source, i, j, channel), 0.5005)
            << i << " " << j << " " << channel;
      }
    }
  }
}

class ResamplingPaths : public OnEveryVectorUnit {};

TEST_F(ResamplingPaths, EveryViewMatchesTheDefinitionAndEveryPathTheFirst) {
  for (const bool colour : {true, false}) {
    const Bytes source = Random_Bytes(Raster_Bytes(431, 283, colour));
    for (const View& view : All_Views()) {
      SCOPED_TRACE(view.name + " " + std::to_string(view.omega) + " " + std::to_string(view.kappa) +
                   " " + std::to_string(view.scale));
      const NormalizedImage image = Turned(view, colour);
      Bytes first;
      Run([&] {
        for (const SegmentPath path : All_Paths()) {
          Bytes target(Raster_Bytes(image.width, image.height, colour), 99);
          Resample_Rows_By_Path(path, image, source, 0, image.height, target);
          if (first.empty()) Expect_Definition(image, source, first = target);
          ASSERT_TRUE(target == first);
        }
      });
    }
  }
}

// Powers of two keep every step exact: pixel = 1024 x film, c = 1.
TEST_F(ResamplingPaths, HalvesOfALongRowAreRoundedToEven) {
  NormalizedImage image = Level(330, 9, false);
  image.c = 1;
  image.PixelWidth = 1.0 / 1024;
  image.affine = {1024, 0, 0, 0, 1024, 0};
  image.Ymax = 8.0 / 1024;
  image.Xmin = 0.5 / 1024;
  const Bytes source = Random_Bytes(Raster_Bytes(330, 9, false));
  for (const SegmentPath path : All_Paths()) {
    Run([&] {
      Bytes target(source.size());
      Resample_Rows_By_Path(path, image, source, 0, 9, target);
      for (std::size_t at = 0; at + 1 < target.size(); ++at) {
        if (at % 330 == 329) continue;
        const int sum = source[at] + source[at + 1];
        const int half = sum / 2;
        ASSERT_EQ(target[at], sum % 2 == 0 ? half : half + half % 2) << at;
      }
    });
  }
}

/// A copy of some bytes between two pages that cannot be read.
class GuardedBytes {
 public:
  GuardedBytes(const Bytes& content, bool at_the_end) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t room = (content.size() + page - 1) / page * page;
    size_ = room + 2 * page;
    memory_ = static_cast<std::uint8_t*>(
        mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    std::uint8_t* const first = memory_ + page + (at_the_end ? room - content.size() : 0);
    std::copy(content.begin(), content.end(), first);
    mprotect(memory_, page, PROT_NONE);
    mprotect(memory_ + page + room, page, PROT_NONE);
    bytes = {first, content.size()};
  }
  ~GuardedBytes() { munmap(memory_, size_); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  std::span<const std::uint8_t> bytes;

 private:
  std::uint8_t* memory_ = nullptr;
  std::size_t size_ = 0;
};

TEST_F(ResamplingPaths, NothingBesideTheSourceIsRead) {
  for (const bool colour : {true, false}) {
    const Bytes source = Random_Bytes(Raster_Bytes(431, 283, colour));
    for (const bool at_the_end : {true, false}) {
      const GuardedBytes guarded(source, at_the_end);
      for (const View& view : All_Views()) {
        const NormalizedImage image = Turned(view, colour);
        for (const SegmentPath path : All_Paths()) {
          Bytes target(Raster_Bytes(image.width, image.height, colour));
          Resample_Rows_By_Path(path, image, guarded.bytes, 0, image.height, target);
        }
      }
    }
  }
}

TEST_F(ResamplingPaths, OnlyTheTargetIsWritten) {
  const NormalizedImage image = Turned({"level", 1, 1, 1, 1}, true);
  const Bytes source = Random_Bytes(Raster_Bytes(431, 283, true));
  const std::size_t row = 3 * std::size_t{397};
  for (const SegmentPath path : All_Paths()) {
    Run([&] {
      Bytes target(3 * row, 77);
      Resample_Rows_By_Path(path, image, source, 150, 1, std::span(target).subspan(row, row));
      EXPECT_EQ(Bytes(target.begin(), target.begin() + static_cast<std::ptrdiff_t>(row)),
                Bytes(row, 77));
      EXPECT_EQ(Bytes(target.end() - static_cast<std::ptrdiff_t>(row), target.end()),
                Bytes(row, 77));
    });
  }
}

}  // namespace
}  // namespace sylvomex
