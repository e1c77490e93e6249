// SPDX-License-Identifier: MIT
#include "session/block_values.h"

#include "state/workspace.h"

#include "session/transcript_text.h"
#include "workspace/operator_event.h"

namespace sylvomex {

std::string Block_Value(Workspace& w, std::string_view name) {
  const std::vector<NamePart> parts = Split_Name(name);
  std::optional<std::string> value = Control_Value(w, parts);
  if (!value) value = State_Value(w, parts);
  if (!value) value = Record_Value(w, parts);
  if (!value) value = Menu_Value(w, parts);
  if (!value) throw UnknownName("there is no value " + std::string(name));
  return One_Line(*value);
}

}  // namespace sylvomex
