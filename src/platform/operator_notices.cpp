// SPDX-License-Identifier: MIT
#include "platform/operator_notices.h"

#include <mutex>
#include <utility>

namespace sylvomex {
namespace {

struct Notices {
  std::mutex mutex;
  std::vector<std::string> texts;
};

Notices& All_Notices() {
  static Notices notices;
  return notices;
}

}  // namespace

void Leave_Notice(std::string text) {
  Notices& notices = All_Notices();
  const std::lock_guard lock(notices.mutex);
  notices.texts.push_back(std::move(text));
}

std::vector<std::string> Take_Notices() {
  Notices& notices = All_Notices();
  const std::lock_guard lock(notices.mutex);
  return std::exchange(notices.texts, {});
}

}  // namespace sylvomex
