// SPDX-License-Identifier: MIT
// The input is an image header.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "imageblock/image_header.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sylvomex::ListReader header(std::string(data, data + size), "c:\\data\\fuzz.hdr");
  try {
    const sylvomex::ImageRecord image = sylvomex::Read_Image_Header(header);
    if (image.BandCount > 4) std::abort();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
