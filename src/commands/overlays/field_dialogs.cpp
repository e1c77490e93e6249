// SPDX-License-Identifier: MIT
#include "commands/overlays/field_dialogs.h"

#include "state/workspace.h"

#include "services/chosen_file.h"

namespace sylvomex {
namespace {

constexpr const char* kTreeDataFilter = "Tree data files (*.bin)|*.bin";

}  // namespace

std::optional<FilePath> Ask_Plot_Text_File(Workspace& w) {
  return Ask_File(w, {"File which has Plot-Border data!", "3D-data files (*.txt)|*.txt", 1, ""});
}

std::optional<FilePath> Ask_Tree_Data_File(Workspace& w) {
  return Ask_File(w, {"File to be outputted in Binary", kTreeDataFilter, 1, ""});
}

std::optional<FilePath> Ask_Field_Tree_File(Workspace& w) {
  return Ask_File(w, {"Binary field tree file", kTreeDataFilter, 1, ""});
}

}  // namespace sylvomex
