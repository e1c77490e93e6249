// SPDX-License-Identifier: MIT
// Metres of the plane are scaled to degrees about (25, 61), so that the projective camera is a set
// of rational polynomials of the first degree.
#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "ortho_peers.h"

namespace sylvomex::bench {
namespace {

constexpr double kDegrees = 1e-5;  // of a metre
constexpr const char* kModelFile = "/vsimem/ortho_model.tif";

/// Coefficients of 1, longitude, latitude and height, offsets 25, 61, 165, scales 0.01, 0.01, 100.
using Linear = std::array<double, 4>;

Linear Along(const Camera& camera, double m1, double m2, double m3) {
  const double dZ = kPlotZ - camera.centre.Z;
  const double dX = kPlotX - camera.centre.X, dY = kPlotY - camera.centre.Y;
  return {m1 * dX + m2 * dY + m3 * dZ, m1 * 1000, m2 * 1000, m3 * 100};
}

std::string Coefficients(const Linear& terms, double divisor) {
  std::string text;
  char number[40];
  const double ordered[] = {terms[0], terms[1], terms[2], terms[3]};
  for (const double term : ordered) {
    std::snprintf(number, sizeof number, "%.17g ", term / divisor);
    text += number;
  }
  for (int k = 4; k < 20; ++k) text += "0 ";
  return text;
}

CPLStringList Rational_Camera(const Camera& camera) {
  const RotationMatrix& m = camera.m;
  const Linear r = Along(camera, m.m11, m.m12, m.m13);
  const Linear s = Along(camera, m.m21, m.m22, m.m23);
  const Linear q = Along(camera, m.m31, m.m32, m.m33);
  Linear col{}, line{};
  for (std::size_t k = 0; k < 4; ++k) {
    col[k] = -camera.c * (camera.A1 * r[k] + camera.A2 * s[k]) + camera.A0 * q[k];
    const double row = -camera.c * (camera.B1 * r[k] + camera.B2 * s[k]) + camera.B0 * q[k];
    line[k] = (kFrameHeight - 1) * q[k] - row;
  }
  CPLStringList rpc;
  for (const auto& [name, value] :
       {std::pair{"LINE_OFF", "0"}, std::pair{"SAMP_OFF", "0"}, std::pair{"LAT_OFF", "61"},
        std::pair{"LONG_OFF", "25"}, std::pair{"HEIGHT_OFF", "165"}, std::pair{"LINE_SCALE", "1"},
        std::pair{"SAMP_SCALE", "1"}, std::pair{"LAT_SCALE", "0.01"},
        std::pair{"LONG_SCALE", "0.01"}, std::pair{"HEIGHT_SCALE", "100"}}) {
    rpc.SetNameValue(name, value);
  }
  rpc.SetNameValue("LINE_NUM_COEFF", Coefficients(line, q[0]).c_str());
  rpc.SetNameValue("LINE_DEN_COEFF", Coefficients(q, q[0]).c_str());
  rpc.SetNameValue("SAMP_NUM_COEFF", Coefficients(col, q[0]).c_str());
  rpc.SetNameValue("SAMP_DEN_COEFF", Coefficients(q, q[0]).c_str());
  return rpc;
}

void Require(CPLErr result) {
  if (result != CE_None) throw std::runtime_error("GDAL could not take the inputs");
}

GDALDriver& Driver(const char* name) { return *GetGDALDriverManager()->GetDriverByName(name); }

void Write_Model(const OrthoInputs& in) {
  GDALDataset* model =
      Driver("GTiff").Create(kModelFile, kModelSide, kModelSide, 1, GDT_Float32, nullptr);
  double place[6] = {25 - 500.5 * kDegrees, kDegrees, 0, 61 + 500.5 * kDegrees, 0, -kDegrees};
  model->SetGeoTransform(place);
  OGRSpatialReference degrees;
  degrees.importFromEPSG(4326);
  degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  model->SetSpatialRef(&degrees);
  std::vector<float> heights(in.model.Cells.All().begin(), in.model.Cells.All().end());
  for (int row = 0; row < kModelSide; ++row) {
    Require(model->GetRasterBand(1)->RasterIO(
        GF_Write, 0, kModelSide - 1 - row, kModelSide, 1,
        heights.data() + static_cast<std::size_t>(row) * kModelSide, kModelSide, 1, GDT_Float32, 0,
        0));
  }
  GDALClose(model);
}

}  // namespace

GdalOrtho::GdalOrtho(const OrthoInputs& in) {
  GDALAllRegister();
  CPLSetConfigOption("GDAL_CACHEMAX", "1024");
  Write_Model(in);
  GDALDataset* frame = Driver("MEM").Create("", kFrameWidth, kFrameHeight, 3, GDT_Byte, nullptr);
  std::vector<std::uint8_t> bytes = in.frame;
  Require(frame->RasterIO(GF_Write, 0, 0, kFrameWidth, kFrameHeight, bytes.data(), kFrameWidth,
                          kFrameHeight, GDT_Byte, 3, nullptr, 3, GSpacing{3} * kFrameWidth, 1,
                          nullptr));
  frame->SetMetadata(Rational_Camera(in.source.camera).List(), "RPC");
  source_ = frame;
}

GdalOrtho::~GdalOrtho() { GDALClose(source_); }

void GdalOrtho::Warp(int threads) {
  const double west = 25 + (-360 + 0.09) * kDegrees, south = 61 + (-360 + 0.09) * kDegrees;
  const double side = kOrthoSide * 0.18 * kDegrees;
  CPLStringList options;
  for (const char* word : {"-of", "MEM", "-rpc", "-to", "RPC_DEM=/vsimem/ortho_model.tif", "-to",
                           "RPC_DEMINTERPOLATION=near", "-t_srs", "EPSG:4326", "-ts", "4000",
                           "4000", "-r", "near", "-wm", "1000", "-et", "0", "-wo"}) {
    options.AddString(word);
  }
  options.AddString(("NUM_THREADS=" + std::to_string(threads)).c_str());
  options.AddString("-te");
  for (const double limit : {west, south, west + side, south + side}) {
    options.AddString(CPLSPrintf("%.15g", limit));
  }
  GDALWarpAppOptions* warp = GDALWarpAppOptionsNew(options.List(), nullptr);
  GDALDatasetH source = source_;
  int failed = 0;
  GDALDatasetH result = GDALWarp("", nullptr, 1, &source, warp, &failed);
  GDALWarpAppOptionsFree(warp);
  if (result != nullptr) GDALClose(result);
}

}  // namespace sylvomex::bench
