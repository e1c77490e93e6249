// SPDX-License-Identifier: MIT
#include "services/written_files.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/files.h"

namespace sylvomex {
namespace {

constexpr std::size_t kMostTold = 3;

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

bool Is_Scratch(const FilePath& file) {
  constexpr std::array<std::string_view, 4> kBeginnings{"c:\\data\\pic", "c:\\data\\rkuva",
                                                        "c:\\data\\test_", "c:\\data\\pilkkutesti"};
  const std::string name = Lower(file.name);
  // A file that will replace another one is told under its own name when it does.
  if (file.native.extension().string().starts_with(".part")) return true;
  return std::ranges::any_of(
      kBeginnings, [&](std::string_view beginning) { return name.starts_with(beginning); });
}

std::string Words(const std::string& name, bool whole, long lines) {
  if (whole) return name + " written";
  return std::to_string(lines) + (lines == 1 ? " line" : " lines") + " added to " + name;
}

}  // namespace

WrittenFiles::Written& WrittenFiles::Entry(const FilePath& file) {
  const auto found = std::ranges::find_if(
      files_, [&](const Written& written) { return written.file.native == file.native; });
  return found != files_.end() ? *found : files_.emplace_back(Written{file});
}

void WrittenFiles::Will_Change(const FilePath& file, bool appends) {
  if (!appends && !Is_Scratch(file)) Entry(file).whole = true;
}

void WrittenFiles::Has_Appended(const FilePath& file, std::string_view text) {
  if (!text.empty() && !Is_Scratch(file)) {
    Entry(file).lines += std::ranges::count(text, '\n');
  }
}

std::string WrittenFiles::Take() {
  std::vector<Written> files = std::exchange(files_, {});
  std::erase_if(files, [](const Written& written) { return !File_Exists(written.file); });
  std::string words;
  for (std::size_t i = 0; i < std::min(files.size(), kMostTold); ++i) {
    words += (i == 0 ? "" : "; ") + Words(files[i].file.name, files[i].whole, files[i].lines);
  }
  if (files.size() > kMostTold) {
    words += " and " + std::to_string(files.size() - kMostTold) + " more";
  }
  return words;
}

}  // namespace sylvomex
