// SPDX-License-Identifier: MIT
#include "demo/render/photo_renderer.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <array>
#include <cmath>
#include <span>

#include "demo/render/surface_colour.h"
#include "demo/scene/counter_random.h"

namespace sylvomex::demo {
namespace {

constexpr int kBandRows = 40;
constexpr std::uint64_t kNoiseStream = 6;
constexpr int kNoiseLevels = 4096;

/// Normal deviates by rank: a table from which twelve random bits select one.
const std::array<float, kNoiseLevels>& Normal_Deviates() {
  static const std::array<float, kNoiseLevels> table = [] {
    std::array<float, kNoiseLevels> deviates;
    for (int i = 0; i < kNoiseLevels; ++i) {
      deviates[static_cast<std::size_t>(i)] =
          static_cast<float>(Normal_Quantile((i + 0.5) / kNoiseLevels));
    }
    return deviates;
  }();
  return table;
}

/// Rows of colours, one pixel wider than the raw file on either side.
struct Band {
  int width = 0;      // pixels per row, including margins
  int first_row = 0;  // raw row of the first row, including the margin
  int rows = 0;
  std::vector<Colour3> colours;

  [[nodiscard]] std::size_t Start_Of(int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width);
  }
};

void Cast_Row(const Photograph& photo, const RayColour& colour_of, Band& band, int row) {
  RowMemory memory;
  Colour3* out = band.colours.data() + band.Start_Of(row);
  for (int i = 0; i < band.width; ++i) {
    const RawPixelCentre centre = Centre_Of_Raw_Pixel(photo.image, i - 1, band.first_row + row);
    out[i] = colour_of(centre.col, centre.row, memory);
  }
}

float Binomial(float a, float b, float c) { return 0.25F * (a + 2 * b + c); }

Colour3 Binomial(const Colour3& a, const Colour3& b, const Colour3& c) {
  return {Binomial(a.red, b.red, c.red), Binomial(a.green, b.green, c.green),
          Binomial(a.blue, b.blue, c.blue)};
}

/// The blurred colour at (i, row) of the band; both must lie inside the margin.
Colour3 Blurred(const Band& band, int i, int row) {
  std::array<Colour3, 3> across;
  for (int k = 0; k < 3; ++k) {
    const Colour3* at = band.colours.data() + band.Start_Of(row - 1 + k) + i;
    across[static_cast<std::size_t>(k)] = Binomial(at[-1], at[0], at[1]);
  }
  return Binomial(across[0], across[1], across[2]);
}

std::uint8_t To_Grey_Value(float value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

/// Blurs one row, adds noise and writes its bytes.
void Develop_Row(const Scene& scene, const Photograph& photo, const Band& band, int row,
                 std::span<std::uint8_t> raw) {
  const auto& deviates = Normal_Deviates();
  const auto sigma = static_cast<float>(scene.settings.noise_sigma);
  const auto columns = static_cast<std::size_t>(band.width - 2);
  const auto raw_row = static_cast<std::size_t>(band.first_row + row);
  const std::uint64_t key = Stream_Key(scene.settings.seed, kNoiseStream) ^ Mix_Bits(photo.grain);
  // Frame positions, not raw-file positions: a larger part of a frame then has the same noise.
  const auto full_row = static_cast<std::uint64_t>(
      (photo.image.SubRowOrigin + static_cast<double>(raw_row)) * photo.image.FullWidth +
      photo.image.SubColOrigin);
  const bool colour_photo = photo.image.ColorFlag == 1;
  for (std::size_t i = 0; i < columns; ++i) {
    const Colour3 light = Blurred(band, static_cast<int>(i) + 1, row);
    const std::size_t pixel = raw_row * columns + i;
    const std::uint64_t bits = Mix_Bits(key + full_row + i);
    const auto noise = [&](unsigned shift) { return sigma * deviates[(bits >> shift) & 0xFFFU]; };
    if (colour_photo) {
      raw[3 * pixel] = To_Grey_Value(light.red + noise(0));
      raw[3 * pixel + 1] = To_Grey_Value(light.green + noise(12));
      raw[3 * pixel + 2] = To_Grey_Value(light.blue + noise(24));
    } else {
      raw[pixel] =
          To_Grey_Value(0.35F * light.red + 0.5F * light.green + 0.15F * light.blue + noise(0));
    }
  }
}

void Render_Band(const Scene& scene, const Photograph& photo, const RayColour& colour_of,
                 int first_row, int rows, std::span<std::uint8_t> raw) {
  Band band;
  band.width = static_cast<int>(photo.image.SubWidth) + 2;
  band.first_row = first_row - 1;
  band.rows = rows + 2;
  band.colours.resize(band.Start_Of(band.rows));
  for (int row = 0; row < band.rows; ++row) Cast_Row(photo, colour_of, band, row);
  for (int row = 1; row <= rows; ++row) Develop_Row(scene, photo, band, row, raw);
}

}  // namespace

std::vector<std::uint8_t> Render_Rays(const Scene& scene, const Photograph& photo,
                                      const RayColour& colour_of) {
  const int height = static_cast<int>(photo.image.SubHeight);
  const std::size_t bytes = photo.image.ColorFlag == 1 ? 3 : 1;
  std::vector<std::uint8_t> raw(bytes * static_cast<std::size_t>(photo.image.SubWidth) *
                                static_cast<std::size_t>(height));
  const int bands = (height + kBandRows - 1) / kBandRows;
  const int threads = scene.settings.threads;
  tbb::task_arena arena(threads > 0 ? threads : tbb::task_arena::automatic);
  arena.execute([&] {
    tbb::parallel_for(tbb::blocked_range<int>(0, bands, 1), [&](const auto& range) {
      for (int band = range.begin(); band < range.end(); ++band) {
        const int first = band * kBandRows;
        Render_Band(scene, photo, colour_of, first, std::min(kBandRows, height - first), raw);
      }
    });
  });
  return raw;
}

std::vector<std::uint8_t> Render_Photograph(const Scene& scene, const Photograph& photo) {
  const double mean_ground_t = photo.image.Z0 - 160;
  return Render_Rays(scene, photo, [&, mean_ground_t](double col, double row, RowMemory& memory) {
    const Ray ray = Ray_Through_Pixel(photo, col, row);
    memory.ground_t = Ground_Crossing(scene, ray, memory.ground_t.value_or(mean_ground_t));
    return Surface_Colour(scene, Cast_Camera_Ray(scene, ray, *memory.ground_t, Foliage::Frayed),
                          memory.shading_tree);
  });
}

}  // namespace sylvomex::demo
