// SPDX-License-Identifier: MIT
#include "platform/drive_map.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/number_text.h"

namespace sylvomex {

namespace {

namespace fs = std::filesystem;

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool Is_Letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool Is_Separator(char c) { return c == '\\' || c == '/'; }

/// Calls visit with the name of each entry of a folder; an unreadable folder counts as empty.
template <class Visitor>
void For_Each_Name(const fs::path& folder, Visitor&& visit) {
  std::error_code failure;
  for (fs::directory_iterator at(folder, failure), end; !failure && at != end;
       at.increment(failure)) {
    visit(at->path().filename().string());
  }
}

/// The entry of the folder with that name: an exact match, else the first case-insensitive match in
/// sorted order, else the name itself.
fs::path Find_Entry(const fs::path& folder, const std::string& name) {
  fs::path exact = folder / name;
  std::error_code failure;
  if (fs::exists(exact, failure)) return exact;
  const std::string wanted = Lower(name);
  std::string found;
  For_Each_Name(folder, [&](const std::string& entry) {
    if (Lower(entry) == wanted && (found.empty() || entry < found)) found = entry;
  });
  return found.empty() ? exact : folder / found;
}

/// The components of a path without its drive. "." is dropped and ".." removes the component before
/// it, if there is one.
std::vector<std::string> Components(std::string_view path) {
  std::vector<std::string> components;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view component = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (component == "..") {
      if (!components.empty()) components.pop_back();
    } else if (!component.empty() && component != ".") {
      components.emplace_back(component);
    }
  }
  return components;
}

bool Matches(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in_pattern = 0;
  std::size_t star = std::string_view::npos;
  std::size_t star_at = 0;
  while (at < name.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
      star = in_pattern++;
      star_at = at;
    } else if (in_pattern < pattern.size() &&
               (pattern[in_pattern] == '?' || pattern[in_pattern] == name[at])) {
      ++in_pattern;
      ++at;
    } else if (star != std::string_view::npos) {
      in_pattern = star + 1;
      at = ++star_at;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in_pattern) == std::string_view::npos;
}

}  // namespace

DriveMap::DriveMap(std::filesystem::path root) : root_(std::move(root)) {}

FilePath DriveMap::Locate(std::string_view name) const {
  name = Without_Blanks_Around(name);
  if (name.empty()) return {};
  if (name.front() == '/') return {std::string(name), fs::path(name)};
  std::string drive = "c";
  std::string_view rest = name;
  if (name.size() > 1 && Is_Letter(name[0]) && name[1] == ':') {
    drive = Lower(name.substr(0, 1));
    rest.remove_prefix(2);
  }
  fs::path native = Find_Entry(root_, drive);
  for (const std::string& component : Components(rest)) native = Find_Entry(native, component);
  return {std::string(name), native};
}

std::string DriveMap::Drive_Name(const fs::path& native) const {
  std::error_code failure;  // a working folder that was removed
  const fs::path full = fs::absolute(native, failure).lexically_normal();
  const fs::path root = fs::absolute(root_, failure).lexically_normal();
  if (failure) return native.string();
  const fs::path below = full.lexically_relative(root);
  std::string name;
  for (const fs::path& component : below) {
    if (!name.empty()) name += '\\';
    name += component.string();
    if (name.size() == 1) name += ':';
  }
  const bool on_drive = name.size() > 3 && Is_Letter(name[0]) && name[1] == ':' && name[2] == '\\';
  return on_drive && Locate(name).native.lexically_normal() == (root_ / below).lexically_normal()
             ? name
             : native.string();
}

std::vector<FilePath> DriveMap::Match(std::string_view pattern) const {
  pattern = Without_Blanks_Around(pattern);
  std::size_t folder_length = pattern.size();
  while (folder_length > 0 && !Is_Separator(pattern[folder_length - 1]) &&
         pattern[folder_length - 1] != ':') {
    --folder_length;
  }
  const std::string folder_name(pattern.substr(0, folder_length));
  const std::string wanted = Lower(pattern.substr(folder_length));
  const fs::path folder = Locate(folder_name.empty() ? "c:" : folder_name).native;

  std::vector<FilePath> files;
  For_Each_Name(folder, [&](const std::string& entry) {
    std::error_code failure;
    if (Matches(Lower(entry), wanted) && !fs::is_directory(folder / entry, failure)) {
      files.push_back({folder_name + entry, folder / entry});
    }
  });
  std::sort(files.begin(), files.end(), [](const FilePath& a, const FilePath& b) {
    return std::pair(Lower(a.name), a.name) < std::pair(Lower(b.name), b.name);
  });
  return files;
}

}  // namespace sylvomex
