// SPDX-License-Identifier: MIT
// The subcommands and what each is asked for, as the command line and the desktop's dialogs tell
// it.
#pragma once

#include <span>
#include <string_view>

namespace sylvomex {

enum class SiteFieldKind {
  Site,     // the folder of the site
  File,     // one that exists
  Files,    // one or more
  NewFile,  // one to be written
  Text,     // a word or a text
  Numbers,  // as many as the value has words
  Choice,   // one of the words of the value
};

struct SiteField {
  const char* name;  // "FILE" by its place in the line, "--cameras" by its name
  const char* help;
  SiteFieldKind kind = SiteFieldKind::Text;
  bool required = true;
  const char* value = "";  // of numbers "LOW HIGH", of a choice its words

  [[nodiscard]] bool Is_Option() const { return std::string_view(name).starts_with("--"); }
};

struct SiteCommand {
  const char* words;  // "import lidar"
  const char* help;
  std::span<const SiteField> fields;  // those of a place in their order, then those with names
};

std::span<const SiteCommand> Site_Commands();

/// words must be those of a command, and name that of one of its fields.
const SiteCommand& Site_Command(std::string_view words);
const SiteField& Field_Of(const SiteCommand& command, std::string_view name);

}  // namespace sylvomex
