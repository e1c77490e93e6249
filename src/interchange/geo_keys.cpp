// SPDX-License-Identifier: MIT
#include "interchange/geo_keys.h"

#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

#include "interchange/coordinate_system.h"

namespace sylvomex {
namespace {

// TIFF 6.0 (Adobe, 1992), little-endian.
constexpr std::uint16_t kText = 2, kShort = 3, kDouble = 12;
constexpr std::size_t kHeaderBytes = 8, kEntryBytes = 12;

struct TiffEntry {
  std::uint16_t tag = 0, type = 0;
  std::uint32_t count = 0;
  std::vector<std::uint8_t> values;
};

template <class Value>
void Append(std::vector<std::uint8_t>& bytes, Value value) {
  const auto* const first = reinterpret_cast<const std::uint8_t*>(&value);
  bytes.insert(bytes.end(), first, first + sizeof value);
}

TiffEntry Number(std::uint16_t tag, std::uint16_t value) {
  TiffEntry entry{tag, kShort, 1, {}};
  Append(entry.values, value);
  return entry;
}

/// The tags of a raster of one pixel, which lies at byte 0 of the file.
std::vector<TiffEntry> One_Pixel() {
  constexpr std::uint16_t kWidth = 256, kHeight = 257, kBits = 258, kCompression = 259,
                          kPhotometric = 262, kStrip = 273, kSamples = 277, kRows = 278,
                          kStripBytes = 279;
  return {Number(kWidth, 1),       Number(kHeight, 1),      Number(kBits, 8),
          Number(kCompression, 1), Number(kPhotometric, 1), Number(kStrip, 0),
          Number(kSamples, 1),     Number(kRows, 1),        Number(kStripBytes, 1)};
}

/// A raster of one pixel with the keys as its tags: the records have the tags' numbers and
/// contents.
std::vector<std::uint8_t> Tiff_With(std::span<const LasVariableRecord> records) {
  std::vector<TiffEntry> entries = One_Pixel();
  const auto add = [&](int id, std::uint16_t type, std::size_t item) {
    for (const LasVariableRecord& record : records) {
      const std::size_t count = record.content.size() / item;
      if (record.user != "LASF_Projection" || record.id != id || count == 0) continue;
      const auto first = record.content.begin();
      entries.push_back({static_cast<std::uint16_t>(id),
                         type,
                         static_cast<std::uint32_t>(count),
                         {first, first + static_cast<std::ptrdiff_t>(count * item)}});
      return;
    }
  };
  add(34735, kShort, sizeof(std::uint16_t));
  add(34736, kDouble, sizeof(double));
  add(34737, kText, 1);
  std::vector<std::uint8_t> bytes = {'I', 'I', 42, 0, kHeaderBytes, 0, 0, 0}, values;
  const std::size_t values_at = kHeaderBytes + 2 + kEntryBytes * entries.size() + 4;
  Append(bytes, static_cast<std::uint16_t>(entries.size()));
  for (TiffEntry& entry : entries) {
    Append(bytes, entry.tag);
    Append(bytes, entry.type);
    Append(bytes, entry.count);
    const bool is_inside = entry.values.size() <= 4;
    entry.values.resize(std::max<std::size_t>(entry.values.size(), 4));
    if (is_inside) {
      bytes.insert(bytes.end(), entry.values.begin(), entry.values.end());
    } else {
      Append(bytes, static_cast<std::uint32_t>(values_at + values.size()));
      values.insert(values.end(), entry.values.begin(), entry.values.end());
    }
  }
  Append(bytes, std::uint32_t{0});
  bytes.insert(bytes.end(), values.begin(), values.end());
  return bytes;
}

}  // namespace

std::string Defined_By_Geo_Keys(std::span<const LasVariableRecord> records) {
  Start_Gdal();
  static std::atomic<int> files = 0;
  const std::string name = "/vsimem/sylvomex_keys_" + std::to_string(++files) + ".tif";
  std::vector<std::uint8_t> tiff = Tiff_With(records);
  VSIFCloseL(VSIFileFromMemBuffer(name.c_str(), tiff.data(), tiff.size(), FALSE));
  std::string wkt;
  {
    const GDALDatasetUniquePtr file(GDALDataset::Open(name.c_str(), GDAL_OF_RASTER));
    const OGRSpatialReference* const system = file == nullptr ? nullptr : file->GetSpatialRef();
    if (system != nullptr && (system->IsProjected() != 0 || system->IsGeographic() != 0)) {
      wkt = Wkt_Without_Heights(*system);
    }
  }
  VSIUnlink(name.c_str());
  return wkt;
}

}  // namespace sylvomex
