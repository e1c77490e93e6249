// SPDX-License-Identifier: MIT
// The input is a template: its four numbers up to the first 0 byte, then its pixels. What can be
// read is smoothed, resized and written back.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>

#include "matching/image_template.h"
#include "matching/template_sizes.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;

// The files lie in memory: templates are found by their names below a root.
const DriveMap& Drives() {
  static const DriveMap drives = [] {
    const std::filesystem::path root =
        "/dev/shm/sylvomex_fuzz_template_" + std::to_string(getpid());
    std::filesystem::create_directories(root / "c/data");
    static const struct Removal {
      std::filesystem::path root;
      ~Removal() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
      }
    } removal{root};
    return DriveMap(root);
  }();
  return drives;
}

void Write_Input(std::span<const std::uint8_t> input) {
  const auto end = std::find(input.begin(), input.end(), std::uint8_t{0});
  const auto numbers = static_cast<std::size_t>(end - input.begin());
  Write_Whole_File(Drives().Locate("c:\\data\\temp0.img"), input.first(numbers));
  Write_Whole_File(Drives().Locate("c:\\data\\temp0.raw"),
                   input.subspan(std::min(numbers + 1, input.size())));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Write_Input(std::span(data, size));
  try {
    ImageTemplate pattern = Read_Template(Drives(), 0);
    if (pattern.pixels.size() > size) std::abort();
    const SizeTable sizes = Make_Size_Table(pattern);
    Smooth_Template(pattern);
    Write_Size_Template(Drives(), 0, 1, Resample_Template(pattern, sizes[0]));
    static_cast<void>(Read_Size_Template(Drives(), 0, 1));
  } catch (const RunTimeError&) {
    return 0;
  }
  return 0;
}
