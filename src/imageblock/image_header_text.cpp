// SPDX-License-Identifier: MIT
#include "imageblock/image_header_text.h"

#include <charconv>
#include <string_view>

namespace sylvomex {
namespace {

std::string Item(double value) {
  char buffer[40];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

std::string Item(std::int32_t value) { return std::to_string(value); }
std::string Item(std::int16_t value) { return std::to_string(value); }
std::string Item(std::uint8_t value) { return std::to_string(value); }

std::string Item(const FixedText<60>& text) {
  std::string item = "\"";
  for (const char character : text.Trimmed()) {
    item += character == '"' ? std::string("\"\"") : std::string(1, character);
  }
  return item + '"';
}

template <class First, class... Others>
std::string Line(const First& first, const Others&... others) {
  std::string line = Item(first);
  ((line += "," + Item(others)), ...);
  return line + "\r\n";
}

std::string Reserved_Line(const ImageRecord& image) {
  std::string line;
  for (const double value : image.CameraReserved) line += (line.empty() ? "" : ",") + Item(value);
  return line + "\r\n";
}

}  // namespace

std::string Image_Header_Text(const ImageRecord& image) {
  std::string text = Line(image.ImageId) + Line(image.SubWidth) + Line(image.SubHeight) +
                     Line(image.RawFileName) + Line(image.ColorFlag) + Line(image.StartCol) +
                     Line(image.StartRow) + Line(image.SubColOrigin) + Line(image.SubRowOrigin) +
                     Line(image.FullWidth) + Line(image.FullHeight) +
                     Line(image.PrincipalDistance) + Reserved_Line(image);
  text += Line(image.AffineA1, image.AffineA2, image.AffineA0, image.AffineB1, image.AffineB2,
               image.AffineB0);
  text += Line(image.Omega, image.Phi, image.Kappa) + Line(image.X0, image.Y0, image.Z0);
  text += Line(image.SunAzimuth) + Line(image.SunElevation) + Line(image.ImageComment) +
          Line(image.BandCount);
  for (std::int32_t band = 0; band < image.BandCount; ++band) {
    text += Line(image.BandType(band), image.BandFile(band), image.BandWidth(band),
                 image.BandHeight(band));
  }
  return text;
}

}  // namespace sylvomex
