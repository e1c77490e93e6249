// SPDX-License-Identifier: MIT
#include "interchange/printed_text.h"

#include <cstdarg>
#include <cstdio>

namespace sylvomex {

std::string Printed(const char* pattern, ...) {
  char text[512];
  va_list values;
  va_start(values, pattern);
  std::vsnprintf(text, sizeof text, pattern, values);
  va_end(values);
  return text;
}

}  // namespace sylvomex
