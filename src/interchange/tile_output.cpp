// SPDX-License-Identifier: MIT
#include "interchange/tile_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <system_error>
#include <vector>

#include "interchange/failures.h"
#include "lidar/counted_file.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

/// A file opened for one piece of writing.
class OpenedFile {
 public:
  OpenedFile(const std::filesystem::path& file, const std::filesystem::path& place, int flags)
      : place_(place), descriptor_(open(file.c_str(), flags | O_WRONLY | O_CLOEXEC, 0666)) {
    if (descriptor_ < 0) Fail();
  }
  ~OpenedFile() { close(descriptor_); }
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;

  void Write_At(std::uint64_t at, std::span<const std::uint8_t> bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(at));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) Fail();
      at += static_cast<std::uint64_t>(count);
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
  }

 private:
  [[noreturn]] void Fail() const {
    throw FailedOnTheWay(place_.string() +
                         ": it cannot be written: " + std::generic_category().message(errno));
  }

  const std::filesystem::path& place_;
  int descriptor_;
};

/// Copies the records of an old tile behind the count; gives their number.
std::uint64_t Copy_Old(const std::filesystem::path& old, std::size_t record_bytes,
                       const OpenedFile& to) {
  const CountedFile from({old.string(), old}, static_cast<std::int64_t>(record_bytes));
  const std::int32_t count = from.Count();
  std::vector<std::uint8_t> bytes;
  for (std::int32_t first = 0; first < count;) {
    const std::int32_t here = std::min(count - first, 10'000);
    bytes.resize(static_cast<std::size_t>(here) * record_bytes);
    from.Read_From(first, bytes);
    to.Write_At(
        static_cast<std::uint64_t>(kCountBytes) + static_cast<std::uint64_t>(first) * record_bytes,
        bytes);
    first += here;
  }
  return static_cast<std::uint64_t>(count);
}

}  // namespace

std::string Tile_File_Name(const TileKey& tile) {
  return Format(tile.first, "000") + "_" + Format(tile.second, "000") + ".bin";
}

TileOutput::TileOutput(std::size_t record_bytes,
                       std::function<std::filesystem::path(const TileKey&)> place,
                       std::function<std::filesystem::path(const std::filesystem::path&)> new_file)
    : record_bytes_(record_bytes), place_(std::move(place)), new_file_(std::move(new_file)) {}

void TileOutput::Begin(const TileKey& key, Tile& tile) const {
  tile.place = place_(key);
  tile.file = new_file_(tile.place);
  const OpenedFile file(tile.file, tile.place, O_CREAT | O_TRUNC);
  file.Write_At(0, std::array<std::uint8_t, kCountBytes>{});
  if (std::filesystem::exists(tile.place) && std::filesystem::file_size(tile.place) > 0) {
    tile.records = Copy_Old(tile.place, record_bytes_, file);
  }
}

TileRoom TileOutput::Take_Room(const TileKey& key, std::uint64_t records) {
  const auto [found, is_new] = tiles_.try_emplace(key);
  Tile& tile = found->second;
  if (is_new) Begin(key, tile);
  const std::uint64_t at = static_cast<std::uint64_t>(kCountBytes) + tile.records * record_bytes_;
  tile.records += records;
  if (tile.records > std::numeric_limits<std::int32_t>::max()) {
    throw Refused(tile.place.string() + ": more pulses than a tile can count");
  }
  return {tile.file, tile.place, at};
}

void Write_Records(const TileRoom& room, std::span<const std::uint8_t> records) {
  OpenedFile(room.file, room.place, 0).Write_At(room.at, records);
}

void TileOutput::Finish() {
  for (const auto& [key, tile] : tiles_) {
    std::array<std::uint8_t, kCountBytes> count{};
    for (std::size_t i = 0; i < kCountBytes; ++i) {
      count[i] = static_cast<std::uint8_t>(tile.records >> (8 * i) & 255U);
    }
    OpenedFile(tile.file, tile.place, 0).Write_At(0, count);
  }
}

}  // namespace sylvomex
