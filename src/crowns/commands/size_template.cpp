// SPDX-License-Identifier: MIT
#include "crowns/commands/size_template.h"

#include <string>

#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

FilePath Template_File(const DriveMap& drives, int image, int size, const char* extension) {
  return drives.Locate("c:\\data\\test_" + std::to_string(image) + "_" + std::to_string(size) +
                       extension);
}

std::vector<std::uint8_t> Read_Pixels(const FilePath& file, std::size_t count) {
  const PositionalFile raw(file);
  if (raw.Size() < count) {
    throw RunTimeError(Failure::InputPastEnd,
                       file.name + ": " + std::to_string(count) + " pixels wanted", file.native);
  }
  std::vector<std::uint8_t> pixels(count);
  raw.Read_At(0, pixels);
  return pixels;
}

}  // namespace

bool Has_Size_Template(const DriveMap& drives, int image, int size) {
  return File_Exists(Template_File(drives, image, size, ".img"));
}

SizeTemplate Read_Size_Template(const DriveMap& drives, int image, int size) {
  const FilePath file = Template_File(drives, image, size, ".img");
  ListReader list(file);
  SizeTemplate pattern;
  pattern.width = list.Read_Int16();
  pattern.height = list.Read_Int16();
  pattern.reference_col = list.Read_Int16();
  pattern.reference_row = list.Read_Int16();
  if (pattern.width < 1 || pattern.height < 1) {
    throw RunTimeError(Failure::BadContent,
                       file.name + ": a template needs at least one column and one row",
                       file.native);
  }
  pattern.pixels = Read_Pixels(
      Template_File(drives, image, size, ".raw"),
      static_cast<std::size_t>(pattern.width) * static_cast<std::size_t>(pattern.height));
  return pattern;
}

}  // namespace sylvomex
