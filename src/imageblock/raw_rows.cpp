// SPDX-License-Identifier: MIT
#include "imageblock/raw_rows.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

[[noreturn]] void Throw_Raw(Failure kind, const RawPixels& raw, const std::string& cause) {
  if (raw.file == nullptr) throw RunTimeError(kind, "raw file: " + cause);
  throw RunTimeError(kind, raw.file->name + ": " + cause, raw.file->native);
}

}  // namespace

void Check_Raw_Length(const RawPixels& raw, RawLayout layout) {
  const double needed = std::ceil(raw.sub_width * raw.sub_height * Bytes_Per_Pixel(layout));
  if (needed <= static_cast<double>(raw.bytes.size())) return;
  Throw_Raw(Failure::InputPastEnd, raw,
            "the header tells " + Plain_Text(needed) + " bytes, the file has " +
                std::to_string(raw.bytes.size()));
}

double Raw_Position(const RawPixels& raw, RawLayout layout, double col, double raw_row) {
  if (layout == RawLayout::Grey) return Round_Half_Even(raw_row * raw.sub_width + col);
  return Round_Half_Even(raw.sub_width) * raw_row * 3 + col * 3;
}

double Raw_Position_Zooming_Out(const RawPixels& raw, RawLayout layout, double col,
                                double raw_row) {
  if (layout == RawLayout::Grey) return Raw_Position(raw, layout, col, raw_row);
  return Round_Half_Even(raw_row * raw.sub_width * 3.0 + col * 3);
}

std::span<const std::uint8_t> Raw_Bytes(const RawPixels& raw, double position, std::int64_t count) {
  if (!(position >= 0)) {
    Throw_Raw(Failure::FileFailure, raw,
              "byte position " + Plain_Text(position + 1) + " lies before the file's start");
  }
  if (position >= static_cast<double>(raw.bytes.size()) || count <= 0) return {};
  const auto start = static_cast<std::size_t>(position);
  const std::size_t left = raw.bytes.size() - start;
  return raw.bytes.subspan(start, std::min(left, static_cast<std::size_t>(count)));
}

}  // namespace sylvomex
