// SPDX-License-Identifier: MIT
#include "imageblock/image_header.h"

#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::int32_t kMostBands = 4;

void Read_Extent(ListReader& header, ImageRecord& image) {
  image.ImageId = header.Read_Int32();
  image.SubWidth = header.Read_Double();
  image.SubHeight = header.Read_Double();
  image.RawFileName = header.Read_Text();
  if (image.RawFileName.Trimmed().empty()) {
    throw header.Failure_Here(Failure::BadContent, "no raw file is named");
  }
  image.ColorFlag = header.Read_Byte();
  image.StartCol = header.Read_Int16();
  image.StartRow = header.Read_Int16();
  image.SubColOrigin = header.Read_Double();
  image.SubRowOrigin = header.Read_Double();
  image.FullWidth = header.Read_Int16();
  image.FullHeight = header.Read_Int16();
}

void Read_Camera(ListReader& header, ImageRecord& image) {
  image.PrincipalDistance = header.Read_Double();
  for (double& value : image.CameraReserved) value = header.Read_Double();
  for (double* coefficient : {&image.AffineA1, &image.AffineA2, &image.AffineA0, &image.AffineB1,
                              &image.AffineB2, &image.AffineB0}) {
    *coefficient = header.Read_Double();
  }
}

void Read_Orientation(ListReader& header, ImageRecord& image) {
  for (double* value : {&image.Omega, &image.Phi, &image.Kappa, &image.X0, &image.Y0, &image.Z0,
                        &image.SunAzimuth, &image.SunElevation}) {
    *value = header.Read_Double();
  }
}

void Read_Bands(ListReader& header, ImageRecord& image) {
  image.BandCount = header.Read_Int32();
  if (image.BandCount > kMostBands) {
    throw header.Failure_Here(Failure::SubscriptOutOfRange,
                              std::to_string(image.BandCount) + " related rasters, at most " +
                                  std::to_string(kMostBands) + " are allowed");
  }
  for (std::int32_t band = 0; band < image.BandCount; ++band) {
    image.BandType(band) = header.Read_Int32();
    image.BandFile(band) = header.Read_Text();
    image.BandWidth(band) = header.Read_Int32();
    image.BandHeight(band) = header.Read_Int32();
  }
}

}  // namespace

ImageRecord Read_Image_Header(ListReader& header) {
  ImageRecord image;
  Read_Extent(header, image);
  Read_Camera(header, image);
  Read_Orientation(header, image);
  image.ImageComment = header.Read_Text();
  Read_Bands(header, image);
  return image;
}

}  // namespace sylvomex
