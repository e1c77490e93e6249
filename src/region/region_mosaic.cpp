// SPDX-License-Identifier: MIT
#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>

#include "interchange/coordinate_system.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "platform/number_text.h"
#include "region/region_merge.h"

namespace sylvomex {
namespace {

[[noreturn]] void Fail(const std::string& name) {
  throw FailedOnTheWay(name + ": it cannot be written: " + Gdal_Message("GDAL refuses"));
}

/// The tiles as one raster of the orthoimage's whole extent, described in a file of its own.
GDALDatasetUniquePtr Join(const RegionPlan& plan, const std::vector<std::filesystem::path>& tiles,
                          const std::filesystem::path& description) {
  const GivenOrthoimage& ortho = *plan.orthoimage;
  const TileGrid2D grid = Tiles_Of(ortho);
  const double west = ortho.extent.west + plan.shift.X, south = ortho.extent.south + plan.shift.Y;
  CPLStringList words;
  for (const std::string& word :
       {std::string("-te"), Full_Text(west), Full_Text(south),
        Full_Text(west + grid.columns * ortho.cell), Full_Text(south + grid.rows * ortho.cell),
        std::string("-tr"), Full_Text(ortho.cell), Full_Text(ortho.cell)}) {
    words.AddString(word.c_str());
  }
  CPLStringList names;
  for (const std::filesystem::path& tile : tiles) names.AddString(tile.c_str());
  GDALBuildVRTOptions* const options = GDALBuildVRTOptionsNew(words.List(), nullptr);
  GDALDatasetUniquePtr joined(GDALDataset::FromHandle(
      GDALBuildVRT(description.c_str(), names.Count(), nullptr, names.List(), options, nullptr)));
  GDALBuildVRTOptionsFree(options);
  return joined;
}

}  // namespace

void Write_Mosaic(const RegionPlan& plan, const std::vector<std::filesystem::path>& tiles,
                  const std::filesystem::path& output, int threads) {
  constexpr GIntBig kCache = 64 << 20;
  Start_Gdal();
  GDALSetCacheMax64(kCache);
  CPLSetConfigOption("GDAL_MAX_DATASET_POOL_SIZE", "64");  // tiles open at once
  CPLErrorReset();
  ExportedFile exported(output), description(output.string() + ".vrt");
  const GDALDatasetUniquePtr joined = Join(plan, tiles, description.Partial());
  if (joined == nullptr) Fail(output.string());
  CPLStringList options;
  options.SetNameValue("COMPRESS", "DEFLATE");
  options.SetNameValue("PREDICTOR", "YES");
  options.SetNameValue("BIGTIFF", "IF_SAFER");
  options.SetNameValue("NUM_THREADS", std::to_string(threads).c_str());
  GDALDatasetUniquePtr made(GetGDALDriverManager()->GetDriverByName("COG")->CreateCopy(
      exported.Partial().c_str(), joined.get(), 0, options.List(), nullptr, nullptr));
  if (made == nullptr) Fail(output.string());
  CPLErrorReset();
  made.reset();
  if (CPLGetLastErrorType() == CE_Failure) Fail(output.string());
  exported.Commit();
}

}  // namespace sylvomex
