// SPDX-License-Identifier: MIT
#include "interchange/site_text.h"

#include <sstream>

#include "interchange/failures.h"
#include "interchange/toml_text.h"

namespace sylvomex {
namespace {

constexpr double kLargestShift = 1e9;  // metres

toml::table Table_Of(const ImportEntry& entry) {
  toml::array files;
  for (const SourceFile& file : entry.files) {
    files.push_back(toml::table{{"path", file.path},
                                {"bytes", static_cast<std::int64_t>(file.bytes)},
                                {"sha256", file.checksum}});
  }
  toml::table settings;
  for (const auto& [name, value] : entry.settings) settings.insert(name, value);
  return toml::table{
      {"kind", entry.kind}, {"time", entry.time}, {"files", files}, {"settings", settings}};
}

[[noreturn]] void Refuse(const std::string& name, const std::string& cause) {
  throw Refused(name + ": " + cause);
}

template <class Value>
Value Required(const toml::table& table, std::string_view key, const std::string& name) {
  const std::optional<Value> value = table[key].value<Value>();
  if (!value) Refuse(name, "\"" + std::string(key) + "\" is missing or of another type");
  return *value;
}

/// Calls take(table) for every table of an array of tables.
template <class Take>
void For_Each_Table(const toml::table& parent, std::string_view key, Take&& take) {
  const toml::array* const tables = parent[key].as_array();
  if (tables == nullptr) return;
  for (const toml::node& node : *tables) {
    if (const toml::table* const table = node.as_table(); table != nullptr) take(*table);
  }
}

std::optional<WorldShift> Shift_In(const toml::table& root, const std::string& name) {
  if (!root.contains("shift")) return std::nullopt;
  const toml::array* const numbers = root["shift"].as_array();
  if (numbers == nullptr || numbers->size() != 3) Refuse(name, "shift is not [X, Y, 0]");
  double values[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::optional<double> value = (*numbers)[i].value<double>();
    if (!value || !(*value >= -kLargestShift && *value <= kLargestShift)) {
      Refuse(name, "shift is not three numbers of metres");
    }
    values[i] = *value;
  }
  if (values[2] != 0) Refuse(name, "heights are not shifted, the third number of shift is 0");
  return WorldShift{values[0], values[1]};
}

ImportEntry Entry_In(const toml::table& table, const std::string& name) {
  ImportEntry entry;
  entry.kind = Required<std::string>(table, "kind", name);
  entry.time = table["time"].value_or(std::string());
  For_Each_Table(table, "files", [&](const toml::table& file) {
    entry.files.push_back({Required<std::string>(file, "path", name),
                           Required<std::string>(file, "sha256", name),
                           static_cast<std::uint64_t>(file["bytes"].value_or(std::int64_t{0}))});
  });
  if (const toml::table* const settings = table["settings"].as_table(); settings != nullptr) {
    for (const auto& [key, value] : *settings) {
      entry.settings[std::string(key.str())] = value.value_or(std::string());
    }
  }
  return entry;
}

}  // namespace

std::string Site_Text(const Site& site) {
  toml::table root{{"crs", site.crs}};
  if (site.shift) {
    root.insert("shift", toml::array{static_cast<std::int64_t>(site.shift->X),
                                     static_cast<std::int64_t>(site.shift->Y), 0});
  }
  toml::array conventions;
  for (const ChosenConvention& chosen : site.conventions) {
    conventions.push_back(toml::table{
        {"table_sha256", chosen.table}, {"cameras_sha256", chosen.cameras}, {"name", chosen.name}});
  }
  if (!conventions.empty()) root.insert("conventions", conventions);
  toml::array imports;
  for (const ImportEntry& entry : site.imports) imports.push_back(Table_Of(entry));
  if (!imports.empty()) root.insert("imports", imports);
  std::ostringstream text;
  // Every string between double quotes with escapes: the others are written wrong where they hold
  // ends of lines or three quotes.
  constexpr auto kFlags = toml::toml_formatter::default_flags &
                          ~toml::format_flags::allow_multi_line_strings &
                          ~toml::format_flags::allow_literal_strings;
  text << "# World = working + shift, metres. Kept by sylvomex-site.\n"
       << toml::toml_formatter(root, kFlags) << '\n';
  return text.str();
}

Site Parse_Site(std::string_view text, const std::string& name) {
  const toml::table root = Parse_Toml(text, name);
  Site site;
  site.crs = Required<std::string>(root, "crs", name);
  site.shift = Shift_In(root, name);
  For_Each_Table(root, "conventions", [&](const toml::table& table) {
    site.conventions.push_back({Required<std::string>(table, "table_sha256", name),
                                table["cameras_sha256"].value_or(std::string()),
                                Required<std::string>(table, "name", name)});
  });
  For_Each_Table(root, "imports",
                 [&](const toml::table& table) { site.imports.push_back(Entry_In(table, name)); });
  return site;
}

}  // namespace sylvomex
