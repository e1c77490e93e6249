// SPDX-License-Identifier: MIT
#include "session/file_part.h"

#include <algorithm>
#include <fstream>

#include "platform/file_descriptor.h"

namespace sylvomex {

std::string Part_Of_File(const std::filesystem::path& file, std::uint64_t offset,
                         std::uint64_t bytes) {
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(file, failure);
  if (failure || offset >= size) return {};
  std::string part(std::min<std::uint64_t>(bytes, size - offset), '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.seekg(static_cast<std::streamoff>(offset));
  if (stream.read(part.data(), static_cast<std::streamsize>(part.size()))) return part;
  if (stream.bad()) Throw_File_Failure({file.string(), file}, "it cannot be read any further");
  return {};
}

}  // namespace sylvomex
