// SPDX-License-Identifier: MIT
#include "services/chosen_file.h"

#include "state/workspace.h"

#include <cctype>

#include "platform/files.h"

namespace sylvomex {
namespace {

bool Begins_With_Drive(std::string_view text) {
  return text.size() > 2 && std::isalpha(static_cast<unsigned char>(text[0])) != 0 &&
         text[1] == ':' && (text[2] == '\\' || text[2] == '/');
}

// The name as typed, without the folder that a dialog prefixed to a drive name.
std::string_view Typed_Name(std::string_view answer) {
  for (std::size_t at = 0; at + 1 < answer.size(); ++at) {
    if (answer[at] == '/' && Begins_With_Drive(answer.substr(at + 1))) return answer.substr(at + 1);
  }
  return answer;
}

bool Has_Ending(std::string_view name) {
  const std::size_t start = name.find_last_of("\\/:");
  return name.find('.', start == std::string_view::npos ? 0 : start) != std::string_view::npos;
}

// ".hdr" of "HDR files (*.hdr)|*.hdr"; empty for "*.*" and for several extensions.
std::string_view Ending_Of(std::string_view filter, int index) {
  for (int part = 1; part < 2 * index; ++part) {
    const std::size_t bar = filter.find('|');
    if (bar == std::string_view::npos) return {};
    filter.remove_prefix(bar + 1);
  }
  filter = filter.substr(0, filter.find('|'));
  if (!filter.starts_with("*.")) return {};
  const std::string_view ending = filter.substr(1);
  return ending.find_first_of("*;?") == std::string_view::npos ? ending : std::string_view();
}

}  // namespace

std::string Chosen_File_Name(const DriveMap& drives, const FileQuestion& question,
                             std::string_view answer) {
  FilePath file = drives.Locate(Typed_Name(answer));
  if (!file.name.empty() && !Has_Ending(file.name) && !File_Exists(file)) {
    const std::string_view ending = Ending_Of(question.filter, question.filter_index);
    const FilePath with_ending = drives.Locate(file.name + std::string(ending));
    if (File_Exists(with_ending)) file = with_ending;
  }
  return file.name.starts_with('/') ? drives.Drive_Name(file.native) : file.name;
}

std::optional<FilePath> Ask_File(Workspace& w, const FileQuestion& question) {
  const auto answer = w.screen->File_Dialog(question);
  if (!answer) return std::nullopt;
  return w.Drives.Locate(Chosen_File_Name(w.Drives, question, *answer));
}

}  // namespace sylvomex
