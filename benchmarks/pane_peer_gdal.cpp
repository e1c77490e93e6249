// SPDX-License-Identifier: MIT
#include "pane_peer_gdal.h"

#include <gdal_priv.h>

#include <fstream>
#include <memory>
#include <stdexcept>

namespace sylvomex::bench {
namespace {

std::string Virtual_Raster(const PaneSource& source) {
  const std::string size = std::to_string(source.size);
  std::string text = "<VRTDataset rasterXSize=\"" + size + "\" rasterYSize=\"" + size + "\">";
  for (int band = 0; band < 3; ++band) {
    text += "<VRTRasterBand dataType=\"Byte\" band=\"" + std::to_string(band + 1) +
            "\" subClass=\"VRTRawRasterBand\"><SourceFilename relativetoVRT=\"0\">" +
            source.file.string() + "</SourceFilename><ImageOffset>" + std::to_string(band) +
            "</ImageOffset><PixelOffset>3</PixelOffset><LineOffset>" +
            std::to_string(3 * source.size) + "</LineOffset></VRTRasterBand>";
  }
  return text + "</VRTDataset>";
}

void Write_Envi_Header(const PaneSource& source) {
  std::filesystem::path header = source.file;
  header.replace_extension(".hdr");
  std::ofstream(header) << "ENVI\nsamples=" << source.size << "\nlines=" << source.size
                        << "\nbands=3\nheader offset=0\nfile type=ENVI Standard\ndata type=1\n"
                           "interleave=bip\nbyte order=0\n";
}

PanePeer Peer(const std::string& name, const std::string& dataset_name) {
  GDALAllRegister();
  const std::shared_ptr<GDALDataset> dataset(
      GDALDataset::FromHandle(GDALOpen(dataset_name.c_str(), GA_ReadOnly)),
      [](GDALDataset* opened) { GDALClose(opened); });
  if (!dataset) throw std::runtime_error(name + " cannot open the raw file");
  const auto paint = [dataset](const PaneWindow& window, int pane_size,
                               std::span<std::uint8_t> bgr) {
    int bands[3] = {3, 2, 1};
    const CPLErr answer = dataset->RasterIO(GF_Read, window.col, window.raw_row, window.size,
                                            window.size, bgr.data(), pane_size, pane_size, GDT_Byte,
                                            3, bands, 3, GSpacing{3} * pane_size, 1, nullptr);
    if (answer != CE_None) throw std::runtime_error("GDAL cannot read the window");
  };
  return {name, paint};
}

}  // namespace

PanePeer Pane_Gdal_Virtual(const PaneSource& source) {
  CPLSetConfigOption("GDAL_VRT_ENABLE_RAWRASTERBAND", "YES");
  return Peer("gdal_virtual", Virtual_Raster(source));
}

PanePeer Pane_Gdal_Envi(const PaneSource& source) {
  Write_Envi_Header(source);
  return Peer("gdal_envi", source.file.string());
}

}  // namespace sylvomex::bench
