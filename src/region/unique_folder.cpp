// SPDX-License-Identifier: MIT
#include "region/unique_folder.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <random>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

/// The process of a folder ".NAME.HOST.PROCESS.RANDOM" of this machine; 0 for another name.
pid_t Process_Of(const std::string& name) {
  if (!name.starts_with(".")) return 0;
  const std::size_t random = name.rfind('.');
  if (random == 0) return 0;
  const std::size_t process = name.rfind('.', random - 1);
  const std::string host = "." + Host_Name();
  if (!name.substr(0, process).ends_with(host)) return 0;
  return static_cast<pid_t>(std::atol(name.c_str() + process + 1));
}

}  // namespace

std::string Host_Name() {
  char text[256] = {};
  if (gethostname(text, sizeof text - 1) != 0) return "unknown";
  std::string name(text);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '.' || c == '/'; }, '-');
  return name.empty() ? "unknown" : name;
}

UniqueFolder::UniqueFolder(const fs::path& parent, const std::string& name)
    : path_(parent / ("." + name + "." + Host_Name() + "." + std::to_string(getpid()) + "." +
                      std::to_string(std::random_device()()))) {
  std::error_code error;
  fs::create_directories(path_, error);
  if (error) throw FailedOnTheWay(path_.string() + ": " + error.message());
}

UniqueFolder::~UniqueFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void Remove_Left_Folders(const fs::path& parent) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(parent, ignored)) {
    const pid_t process = Process_Of(entry.path().filename().string());
    if (process <= 0 || kill(process, 0) == 0 || errno != ESRCH) continue;
    fs::remove_all(entry.path(), ignored);
  }
}

}  // namespace sylvomex
