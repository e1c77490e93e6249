// SPDX-License-Identifier: MIT
#include "lidar/path_header.h"

#include "platform/list_reader.h"

namespace sylvomex {

std::string Read_Path_Header(const FilePath& header) {
  return ListReader(header).Read_Text_To_Comma();
}

}  // namespace sylvomex
