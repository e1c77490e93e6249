// SPDX-License-Identifier: MIT
// The input is a list of the orientation test, read as each of its kinds.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/run_time_error.h"
#include "solver/pair_points.h"
#include "solver/point_lists.h"

namespace {

using namespace sylvomex;

template <class Read>
auto Rows_Of(const std::string& text, Read&& read) {
  try {
    return read(ListReader(text, "d:\\fuzz.txt"));
  } catch (const RunTimeError&) {
    return decltype(read(ListReader(text, ""))){};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const auto ground = Rows_Of(text, Read_Ground_Points);
  const auto film = Rows_Of(text, Read_Film_Points);
  for (const HeaderPair& pair : Rows_Of(text, Read_Header_Pairs)) {
    if (pair.first.empty() || pair.second.empty()) std::abort();
  }
  for (const FlightImage& image : Rows_Of(text, Read_Flight_Images)) {
    if (image.header.empty()) std::abort();
  }
  if (film.empty()) return 0;
  const auto pairs =
      Observations_Of_Pair(ground, film, film.front().image_id, film.back().image_id);
  if (pairs.size() > ground.size()) std::abort();
  return 0;
}
