// SPDX-License-Identifier: MIT
#include "site_program/command_table.h"

#include <gtest/gtest.h>

#include "played_program.h"

namespace sylvomex {
namespace {

std::string First_Word(const std::string& words) { return words.substr(0, words.find(' ')); }

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

/// A line with all or only the required fields, for a site that does not exist.
std::vector<std::string> Line(const SiteCommand& command, bool all) {
  std::vector<std::string> line = Words(command.words);
  for (const SiteField& field : command.fields) {
    if (!field.required && !all) continue;
    if (std::string_view(field.name) == "--trajectory") continue;  // excludes another
    if (field.Is_Option()) line.emplace_back(field.name);
    if (field.kind == SiteFieldKind::Numbers) {
      for (std::size_t i = 1; i <= Words(field.value).size(); ++i) {
        line.push_back(std::to_string(i));
      }
    } else if (field.kind == SiteFieldKind::Choice) {
      line.push_back(First_Word(field.value));
    } else {
      line.push_back(std::string_view(field.name) == "--columns" ? "TreeHeight=h"
                                                                 : "/nowhere/at/all");
    }
  }
  return line;
}

TEST(SiteCommandTable, TheCommandLineTakesWhatTheTableTells) {
  for (const SiteCommand& command : Site_Commands()) {
    for (const bool all : {false, true}) {
      const std::vector<std::string> line = Line(command, all);
      const SitePlayed played = Play_Site(line);
      EXPECT_EQ(played.status, 1) << testing::PrintToString(line) << played.err;
    }
  }
}

TEST(SiteCommandTable, WithoutARequiredFieldTheCommandLineIsWrong) {
  for (const SiteCommand& command : Site_Commands()) {
    std::vector<std::string> line = Line(command, false);
    line.pop_back();
    EXPECT_EQ(Play_Site(line).status, 2) << testing::PrintToString(line);
  }
}

TEST(SiteCommandTable, TheHelpSaysWhatTheTableSays) {
  for (const SiteCommand& command : Site_Commands()) {
    std::vector<std::string> line = Words(command.words);
    line.emplace_back("--help");
    const std::string help = Play_Site(line).out;
    for (const SiteField& field : command.fields) {
      EXPECT_NE(help.find(field.name), std::string::npos) << command.words << ' ' << field.name;
    }
  }
}

}  // namespace
}  // namespace sylvomex
