// SPDX-License-Identifier: MIT
// A colour GeoTIFF of 8000 x 8000 pixels to a raw file, striped and tiled (goal: 80 % of the speed
// of GDAL's translation to ENVI or better, which is measured in the same process).
#include <benchmark/benchmark.h>
#include <gdal_utils.h>

#include <filesystem>
#include <random>
#include <vector>

#include "interchange/photo_pixels.h"
#include "support/photo_site.h"

namespace sylvomex {
namespace {

constexpr int kSide = 8000;

std::filesystem::path Photograph(const TemporaryFolder& folder, bool is_tiled) {
  std::mt19937 random(7);
  std::vector<std::int32_t> values(std::size_t{kSide} * kSide * 3);
  for (std::int32_t& value : values) value = static_cast<std::int32_t>(random() & 255U);
  return Write_Tiff(folder, "photo.tif", kSide, kSide, 3, GDT_Byte, values,
                    {is_tiled ? "TILED=YES" : "TILED=NO"});
}

void Count_Bytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * std::int64_t{3} * kSide * kSide);
}

void Ours(benchmark::State& state) {
  const TemporaryFolder folder;
  const auto tiff = Photograph(folder, state.range(0) != 0);
  for (auto _ : state) {
    const PhotoFile file(tiff);
    Write_Raw_Photo(file, {}, {0, 0, kSide, kSide}, {}, folder.Path() / "ours.raw", "ours");
  }
  Count_Bytes(state);
}

void Gdal_Envi(benchmark::State& state) {
  const TemporaryFolder folder;
  const auto tiff = Photograph(folder, state.range(0) != 0);
  const char* words[] = {"-q", "-of", "ENVI", nullptr};
  GDALTranslateOptions* const options = GDALTranslateOptionsNew(const_cast<char**>(words), nullptr);
  for (auto _ : state) {
    GDALDatasetH source = GDALOpen(tiff.c_str(), GA_ReadOnly);
    GDALClose(GDALTranslate((folder.Path() / "gdal.raw").c_str(), source, options, nullptr));
    GDALClose(source);
  }
  GDALTranslateOptionsFree(options);
  Count_Bytes(state);
}

BENCHMARK(Ours)->ArgName("tiled")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Gdal_Envi)
    ->ArgName("tiled")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace sylvomex

BENCHMARK_MAIN();
