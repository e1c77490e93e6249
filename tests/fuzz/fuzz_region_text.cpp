// SPDX-License-Identifier: MIT
// A region's TOML file, and a plan behind a first byte of '{'.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "region/plan_text.h"
#include "region/region_text.h"

namespace {

/// The text with the id that its content must have, so that what is behind that check is reached.
std::string With_Id(std::string_view text) {
  auto json = nlohmann::ordered_json::parse(text, nullptr, false);
  if (!json.is_object()) return std::string(text);
  const auto replace = nlohmann::ordered_json::error_handler_t::replace;
  json.erase("id");
  json["id"] = sylvomex::Text_Checksum(json.dump(-1, ' ', false, replace));
  return json.dump(-1, ' ', false, replace);
}

void Read_Plan_Text(std::string_view text) {
  const sylvomex::RegionPlan plan = sylvomex::Parse_Plan(With_Id(text), "plan.json");
  for (const sylvomex::RegionTask& task : plan.tasks) {
    if (!sylvomex::Is_Task_Name(task.id)) std::abort();
  }
}

void Read_Region_Text(std::string_view text) {
  const sylvomex::RegionOrder order = sylvomex::Parse_Region(text, "/nowhere", "region.toml");
  if (order.orthoimage) (void)sylvomex::Tiles_Of(*order.orthoimage);
  for (const sylvomex::GivenPlot& plot : order.plots) {
    if (!sylvomex::Is_Plot_Name(plot.id)) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    if (text.starts_with("{")) {
      Read_Plan_Text(text);
    } else {
      Read_Region_Text(text);
    }
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  return 0;
}
