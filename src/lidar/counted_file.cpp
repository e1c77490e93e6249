// SPDX-License-Identifier: MIT
#include "lidar/counted_file.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

[[noreturn]] void Refuse(const FilePath& file, const std::string& cause) {
  throw RunTimeError(Failure::BadContent, file.name + ", " + cause, file.native);
}

std::int32_t Count_Of(const PositionalFile& open_file, const FilePath& file) {
  std::array<std::uint8_t, kCountBytes> bytes{};
  const std::size_t got = open_file.Read_At(0, bytes);
  if (got == 0) return 0;
  if (got < bytes.size()) {
    Refuse(file, "a record count takes 4 bytes, the file has " + std::to_string(got));
  }
  return Value_At<std::int32_t>(bytes.data(), 0);
}

void Require_Room(const FilePath& file, std::int32_t count, std::int64_t record_bytes,
                  std::uint64_t size) {
  const std::string records =
      std::to_string(count) + " records of " + std::to_string(record_bytes) + " bytes";
  if (count < 0)
    Refuse(file, records + " are announced, the file has " + std::to_string(size) + " bytes");
  const auto wanted = static_cast<std::uint64_t>(kCountBytes + record_bytes * count);
  if (count == 0 || size >= wanted) return;
  Refuse(file, records + " need " + std::to_string(wanted) + " bytes, the file has " +
                   std::to_string(size));
}

}  // namespace

void Make_Missing_File(const FilePath& file) {
  if (!File_Exists(file)) Write_Whole_File(file, "");
}

std::int32_t Read_Record_Count(const FilePath& file) {
  return Count_Of(PositionalFile(file), file);
}

CountedFile::CountedFile(const FilePath& file, std::int64_t record_bytes)
    : file_(file), record_bytes_(record_bytes), count_(Count_Of(file_, file)) {
  Require_Room(file, count_, record_bytes, file_.Size());
}

void CountedFile::Read_From(std::int64_t record, std::span<std::uint8_t> bytes) const {
  const std::size_t got = file_.Read_At(kCountBytes + record * record_bytes_, bytes);
  std::ranges::fill(bytes.subspan(got), std::uint8_t{0});
}

}  // namespace sylvomex
