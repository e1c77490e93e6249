// SPDX-License-Identifier: MIT
// The input is a camera table; cameras that see a point must read back from their point files.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/run_time_error.h"
#include "solver/point_in_image.h"

namespace {

constexpr sylvomex::Point3D kPoint{2515000.25, 6860000.5, 180};

void Write_And_Read(const sylvomex::TableCamera& camera) {
  const std::string line = sylvomex::Point_In_Image_Line(camera, kPoint);
  sylvomex::ListReader list(line, "c:\\data\\fuzz.txt");
  const sylvomex::PointInImage hit = sylvomex::Read_Point_In_Image(list);
  if (hit.identity != camera.identity || hit.header != camera.header) std::abort();
  if (hit.point.X != kPoint.X || hit.point.Y != kPoint.Y || hit.point.Z != kPoint.Z) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sylvomex::CameraTableReader table(std::string(data, data + size),
                                    {"c:\\data\\fuzz.csv", "/fuzz.csv"});
  try {
    while (const auto camera = table.Next()) {
      sylvomex::Sees_Point(*camera, kPoint);
      sylvomex::Sees_Ring(*camera, kPoint);
      if (camera->identity == static_cast<std::int16_t>(camera->identity)) Write_And_Read(*camera);
    }
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
