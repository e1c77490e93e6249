// SPDX-License-Identifier: MIT
#include "commands/overlays/field_dialogs.h"

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr const char* kTreeDataFilter = "Tree data files (*.bin)|*.bin";

FilePath Ask_File(Workspace& w, const char* title, const char* filter) {
  FileQuestion question;
  question.title = title;
  question.filter = filter;
  const auto name = w.screen->File_Dialog(question);
  if (!name) throw RunTimeError(Failure::FileNotFound, "no file was chosen");
  return w.Drives.Locate(*name);
}

}  // namespace

FilePath Ask_Plot_Text_File(Workspace& w) {
  return Ask_File(w, "File which has Plot-Border data!", "3D-data files (*.txt)|*.txt");
}

FilePath Ask_Tree_Data_File(Workspace& w) {
  return Ask_File(w, "File to be outputted in Binary", kTreeDataFilter);
}

FilePath Ask_Field_Tree_File(Workspace& w) {
  return Ask_File(w, "Binary field tree file", kTreeDataFilter);
}

}  // namespace sylvomex
