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

FilePath Size_File(const DriveMap& drives, int image, int size, const char* extension) {
  return Data_File(drives,
                   "test_" + std::to_string(image) + "_" + std::to_string(size) + extension);
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
  if (raw.Size() < count) {
    throw RunTimeError(Failure::InputPastEnd,
                       file.name + ": " + std::to_string(count) + " pixels wanted, " +
                           std::to_string(raw.Size()) + " there",
                       file.native);
  }
  std::vector<std::uint8_t> pixels(count);
  raw.Read_At(0, pixels);
  return pixels;
}

// Reads a template from its numbers file and its pixel file.
ImageTemplate Read_Pair(const FilePath& numbers, const FilePath& pixels) {
  ListReader list(numbers);
  ImageTemplate pattern;
  pattern.width = list.Read_Int16();
  pattern.height = list.Read_Int16();
  pattern.reference_col = list.Read_Int16();
  pattern.reference_row = list.Read_Int16();
  if (pattern.width < 1 || pattern.height < 1) {
    throw RunTimeError(Failure::BadContent,
                       numbers.name + ": a template needs at least one column and one row",
                       numbers.native);
  }
  pattern.pixels = Read_Pixels(
      pixels, static_cast<std::size_t>(pattern.width) * static_cast<std::size_t>(pattern.height));
  return pattern;
}

}  // namespace

void Delete_Template(const DriveMap& drives, int image) {
  for (const char* extension : {".raw", ".img"}) {
    Delete_File(Numbered_File(drives, "temp", image, extension));
  }
}

void Delete_Size_Templates(const DriveMap& drives, int image) {
  Delete_Matching(drives, "c:\\data\\test_" + std::to_string(image) + "_*.raw");
  Delete_Matching(drives, "c:\\data\\test_" + std::to_string(image) + "_*.img");
}

void Write_Template(const DriveMap& drives, int image, const ImageTemplate& pattern) {
  Write_Whole_File(Numbered_File(drives, "temp", image, ".raw"), pattern.pixels);
  Write_Whole_File(Numbered_File(drives, "temp", image, ".img"), Four_Numbers(pattern, '\n'));
}

ImageTemplate Read_Template(const DriveMap& drives, int image) {
  return Read_Pair(Numbered_File(drives, "temp", image, ".img"),
                   Numbered_File(drives, "temp", image, ".raw"));
}

bool Has_Size_Template(const DriveMap& drives, int image, int size) {
  return File_Exists(Size_File(drives, image, size, ".img"));
}

ImageTemplate Read_Size_Template(const DriveMap& drives, int image, int size) {
  return Read_Pair(Size_File(drives, image, size, ".img"), Size_File(drives, image, size, ".raw"));
}

void Write_Size_Template(const DriveMap& drives, int image, int size,
                         const ImageTemplate& pattern) {
  Write_Whole_File(Size_File(drives, image, size, ".img"), Four_Numbers(pattern, ' '));
  Write_Whole_File(Size_File(drives, image, size, ".raw"), pattern.pixels);
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
