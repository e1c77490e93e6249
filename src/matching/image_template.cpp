// SPDX-License-Identifier: MIT
#include "matching/image_template.h"

#include <string>

#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

FilePath Data_File(const DriveMap& drives, const std::string& name) {
  return drives.Locate("c:\\data\\" + name);
}

FilePath Numbered_File(const DriveMap& drives, const char* stem, int image, const char* extension) {
  return Data_File(drives, stem + std::to_string(image) + extension);
}

std::string Four_Numbers(const ImageTemplate& pattern, char separator) {
  std::string text;
  for (const int number :
       {pattern.width, pattern.height, pattern.reference_col, pattern.reference_row}) {
    if (!text.empty()) text += separator;
    text += std::to_string(number);
  }
  return text + "\n";
}

std::vector<std::uint8_t> Read_Pixels(const FilePath& file, std::size_t count) {
  const PositionalFile raw(file);
  std::vector<std::uint8_t> pixels(count);
  if (raw.Read_At(0, pixels) < count) {
    throw RunTimeError(Failure::InputPastEnd,
                       file.name + ": " + std::to_string(count) + " pixels wanted", file.native);
  }
  return pixels;
}

}  // namespace

void Write_Template(const DriveMap& drives, int image, const ImageTemplate& pattern) {
  Write_Whole_File(Numbered_File(drives, "temp", image, ".raw"), pattern.pixels);
  Write_Whole_File(Numbered_File(drives, "temp", image, ".img"), Four_Numbers(pattern, '\n'));
}

ImageTemplate Read_Template(const DriveMap& drives, int image) {
  const FilePath file = Numbered_File(drives, "temp", image, ".img");
  ListReader list(file);
  ImageTemplate pattern;
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
      Numbered_File(drives, "temp", image, ".raw"),
      static_cast<std::size_t>(pattern.width) * static_cast<std::size_t>(pattern.height));
  return pattern;
}

void Write_Size_Template(const DriveMap& drives, int image, int size,
                         const ImageTemplate& pattern) {
  const std::string name = "test_" + std::to_string(image) + "_" + std::to_string(size);
  Write_Whole_File(Data_File(drives, name + ".img"), Four_Numbers(pattern, ' '));
  Write_Whole_File(Data_File(drives, name + ".raw"), pattern.pixels);
}

void Write_Patch(const DriveMap& drives, int image, int width, int height,
                 std::span<const std::uint8_t> pixels) {
  Write_Whole_File(Numbered_File(drives, "ccor_ima", image, ".raw"), pixels);
  Write_Whole_File(Numbered_File(drives, "ccor_ima", image, ".img"),
                   std::to_string(width) + "\n" + std::to_string(height) + "\n");
}

FilePath Correlation_Bytes_File(const DriveMap& drives, int image) {
  return Numbered_File(drives, "corimage", image, ".raw");
}

FilePath Correlation_Picture_File(const DriveMap& drives, int image) {
  return Numbered_File(drives, "rkuva", image, ".bmp");
}

}  // namespace sylvomex
