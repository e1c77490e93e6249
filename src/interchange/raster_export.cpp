// SPDX-License-Identifier: MIT
#include "interchange/raster_export.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <optional>

#include "heightmodels/raster_model.h"
#include "interchange/coordinate_system.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

/// A raw raster as GDAL is to see it.
struct RawRaster {
  fs::path file;
  std::int64_t columns = 0, rows = 0;
  int bands = 1;            // interleaved by pixel
  bool is_float = false;    // else bytes
  bool from_south = false;  // its first row is the southernmost
  std::optional<std::array<double, 6>> place;
  std::optional<double> no_data;

  [[nodiscard]] std::int64_t Cell_Bytes() const { return is_float ? 4 : bands; }
};

std::string Escaped(const std::string& text) {
  char* const escaped = CPLEscapeString(text.c_str(), -1, CPLES_XML);
  std::string result = escaped;
  CPLFree(escaped);
  return result;
}

std::string Band_Text(const RawRaster& raster, int band) {
  const std::int64_t cell = raster.Cell_Bytes();
  const std::int64_t row = cell * raster.columns;
  const std::int64_t first = raster.from_south ? row * (raster.rows - 1) : 0;
  std::string text = "<VRTRasterBand dataType=\"" +
                     std::string(raster.is_float ? "Float32" : "Byte") + "\" band=\"" +
                     std::to_string(band) + "\" subClass=\"VRTRawRasterBand\">";
  if (raster.no_data) text += "<NoDataValue>" + Plain_Text(*raster.no_data) + "</NoDataValue>";
  if (raster.bands == 3) {
    text += std::string("<ColorInterp>") +
            std::array{"Red", "Green", "Blue"}.at(static_cast<std::size_t>(band - 1)) +
            "</ColorInterp>";
  }
  return text + "<SourceFilename relativeToVRT=\"0\">" +
         Escaped(fs::absolute(raster.file).string()) + "</SourceFilename><ImageOffset>" +
         std::to_string(first + band - 1) + "</ImageOffset><PixelOffset>" + std::to_string(cell) +
         "</PixelOffset><LineOffset>" + std::to_string(raster.from_south ? -row : row) +
         "</LineOffset><ByteOrder>LSB</ByteOrder></VRTRasterBand>";
}

GDALDatasetUniquePtr Open_Raw(const RawRaster& raster, const std::string& name) {
  std::string text = "<VRTDataset rasterXSize=\"" + std::to_string(raster.columns) +
                     "\" rasterYSize=\"" + std::to_string(raster.rows) + "\">";
  for (int band = 1; band <= raster.bands; ++band) text += Band_Text(raster, band);
  text += "</VRTDataset>";
  CPLErrorReset();
  GDALDatasetUniquePtr dataset(GDALDataset::Open(text.c_str(), GDAL_OF_RASTER));
  if (dataset == nullptr) throw Refused(name + ": it cannot be read: " + Gdal_Message("no raster"));
  return dataset;
}

void Require_Length(const RawRaster& raster, const std::string& name) {
  std::error_code error;
  const auto bytes = static_cast<std::int64_t>(fs::file_size(raster.file, error));
  const std::int64_t wanted = raster.Cell_Bytes() * raster.columns * raster.rows;
  if (error) throw Refused(name + ": " + raster.file.string() + ": " + error.message());
  if (bytes < wanted || wanted <= 0) {
    throw Refused(raster.file.string() + ": it has " + std::to_string(bytes) + " bytes; " + name +
                  " tells " + std::to_string(wanted));
  }
}

int CPL_STDCALL Tell_Run(double share, const char*, void* run) {
  Tell_Share(static_cast<const ExportRun*>(run)->told, share, 1);
  return TRUE;
}

/// crs: empty for a raster without a place.
void Write_Geotiff(const RawRaster& raster, const std::string& crs, const std::string& name,
                   const fs::path& output, ExportRun run) {
  const std::string ending = Lower_Ending(output);
  if (ending != ".tif" && ending != ".tiff") {
    throw Refused(output.string() + ": rasters are written as .tif or .tiff");
  }
  Start_Gdal();
  Require_Length(raster, name);
  const GDALDatasetUniquePtr source = Open_Raw(raster, name);
  if (raster.place) {
    auto place = *raster.place;
    source->SetGeoTransform(place.data());
    const OGRSpatialReference system = Coordinate_System(crs);
    source->SetSpatialRef(&system);
  }
  ExportedFile exported(output, run.site);
  CPLStringList options;
  options.SetNameValue("COMPRESS", "DEFLATE");
  options.SetNameValue("PREDICTOR", "YES");
  options.SetNameValue("BIGTIFF", "IF_SAFER");
  CPLErrorReset();
  GDALDatasetUniquePtr made(GetGDALDriverManager()->GetDriverByName("COG")->CreateCopy(
      exported.Partial().c_str(), source.get(), 0, options.List(), Tell_Run, &run));
  if (made == nullptr) {
    throw FailedOnTheWay(output.string() + ": it cannot be written: " + Gdal_Message("no COG"));
  }
  CPLErrorReset();
  made.reset();
  if (CPLGetLastErrorType() == CE_Failure) {
    throw FailedOnTheWay(output.string() + ": it cannot be written: " + Gdal_Message("no COG"));
  }
  exported.Commit();
}

struct ModelHeader {
  RasterModel model;
  fs::path cells;
};

ModelHeader Read_Header(const fs::path& header, const Site& site) try {
  ModelHeader read;
  Read_Raster_Header({header.string(), header}, read.model);
  read.cells = site.Drives().Locate(read.model.CellFile.Trimmed()).native;
  const RasterModel& m = read.model;
  const auto whole = [](double size) {
    return size >= 1 && size <= 1e6 && size == std::floor(size);
  };
  if (!whole(m.NCols) || !whole(m.NRows) || !(m.CellSize > 0)) {
    throw Refused(header.string() + ": " + Plain_Text(m.NCols) + " columns, " +
                  Plain_Text(m.NRows) + " rows of " + Plain_Text(m.CellSize) + " m are no raster");
  }
  return read;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

RawRaster Raw_Of(const ModelHeader& header) {
  RawRaster raster;
  raster.file = header.cells;
  raster.columns = static_cast<std::int64_t>(header.model.NCols);
  raster.rows = static_cast<std::int64_t>(header.model.NRows);
  raster.from_south = true;
  return raster;
}

/// The place of a raster whose south-west corner, in working coordinates, is known.
std::array<double, 6> Place_From(double west, double south, const RasterModel& model,
                                 const Site& site) {
  const Point3D corner = site.World({west, south + model.NRows * model.CellSize, 0});
  return {corner.X, model.CellSize, 0, corner.Y, 0, -model.CellSize};
}

}  // namespace

void Export_Model(const fs::path& header, const Site& site, const fs::path& output,
                  const ToldShare& told) {
  const ModelHeader read = Read_Header(header, site);
  RawRaster raster = Raw_Of(read);
  const RasterModel& model = read.model;
  raster.is_float = true;
  raster.no_data = -9999;
  raster.place =
      Place_From(model.OriginX - model.CellSize / 2, model.OriginY - model.CellSize, model, site);
  Write_Geotiff(raster, site.crs, header.string(), output, {site.folder, told});
}

void Export_Ortho(const fs::path& file, const Site& site, const fs::path& output,
                  const ToldShare& told) {
  const fs::path header = fs::path(file).replace_extension(".hdr");
  if (!fs::exists(header)) {
    throw Refused(file.string() + ": the image tells neither size nor place; " + header.string() +
                  " is missing: columns, rows, X and Y of the ground in the first (south-west) "
                  "pixel, pixel size, 0 and the raw file, one a line");
  }
  const ModelHeader read = Read_Header(header, site);
  RawRaster raster = Raw_Of(read);
  const RasterModel& model = read.model;
  std::error_code error;
  const auto bytes = static_cast<std::int64_t>(fs::file_size(raster.file, error));
  raster.bands = !error && bytes >= 3 * raster.columns * raster.rows ? 3 : 1;
  raster.place = Place_From(model.OriginX - model.CellSize / 2, model.OriginY - model.CellSize / 2,
                            model, site);
  Write_Geotiff(raster, site.crs, header.string(), output, {site.folder, told});
}

void Export_Correlation(const fs::path& raw, const fs::path& output, const ExportRun& run) try {
  std::string name = raw.stem().string();
  if (name.starts_with("corimage")) name = "ccor_ima" + name.substr(8);
  const fs::path size = raw.parent_path() / (name + ".img");
  ListReader reader(FilePath{size.string(), size});
  RawRaster raster;
  raster.file = raw;
  raster.columns = reader.Read_Int32();
  raster.rows = reader.Read_Int32();
  Write_Geotiff(raster, "", size.string(), output, run);
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace sylvomex
