// SPDX-License-Identifier: MIT
#include "state/cause.h"

#include "platform/number_text.h"
#include "state/workspace.h"

namespace sylvomex {

std::string Cause_Text(const std::exception& failure) {
  const auto* error = dynamic_cast<const RunTimeError*>(&failure);
  if (error == nullptr) return std::string(Failure_Text(Failure::OutOfMemory));
  std::string text = error->what();
  const std::string native = error->Native_Path().string();
  if (!native.empty() && text.find(native) == std::string::npos) text += " (" + native + ")";
  return text;
}

void Tell_Cause(const Workspace& w, std::string_view cause) { w.screen->Tell_Cause(cause); }

void Show_With_Cause(const Workspace& w, std::string_view text, std::string_view cause) {
  Tell_Cause(w, cause);
  w.screen->Message_Box(text);
}

void Show_With_Cause(const Workspace& w, std::string_view text, const std::exception& failure) {
  Show_With_Cause(w, text, Cause_Text(failure));
}

std::string Name_Of_Image(const Workspace& w, int image) {
  std::string name = "image " + Plain_Text(std::int32_t{image});
  if (image >= 0 && image < w.ImageCount)
    name += " (" + Plain_Text(w.ImageBlock(image).ImageId) + ")";
  return name;
}

}  // namespace sylvomex
