// SPDX-License-Identifier: MIT
// The input is a bitmap file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "imageblock/bitmap_file.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file({data, size});
  try {
    const sylvomex::PaneBitmap picture = sylvomex::Load_Bitmap(file.File());
    const auto pixels =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    if (picture.width < 1 || picture.height < 1 || picture.bgr.size() != 3 * pixels) std::abort();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
