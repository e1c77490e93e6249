// SPDX-License-Identifier: MIT
#include "interchange/laz_decoder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

#include "interchange/failures.h"
#include "interchange/laz_script.h"

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace sylvomex {
namespace {

constexpr int kNoPackage = 10, kNotDecoded = 11, kNotWritten = 12;  // of the script

struct NodeResult {
  int status = 0;  // 127: node was not found
  std::string message;
};

/// Both ends of a pipe, closed at the end.
struct Pipe {
  std::array<int, 2> ends{-1, -1};

  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw FailedOnTheWay("no pipe to node can be opened");
  }
  ~Pipe() {
    Close(0);
    Close(1);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  void Close(std::size_t end) {
    if (ends[end] >= 0) close(ends[end]);
    ends[end] = -1;
  }
};

std::string Read_All(int descriptor) {
  std::string text;
  std::array<char, 4096> part{};
  while (true) {
    const ssize_t count = read(descriptor, part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return text;
    text.append(part.data(), static_cast<std::size_t>(count));
  }
}

/// Runs node with a script and two file names; what it prints is its message.
NodeResult Run_Node(const std::filesystem::path& laz, const std::filesystem::path& las) {
  std::array<std::string, 6> words{"node",       "-e",         kLazScript,
                                   laz.string(), las.string(), kLazChunkScript};
  std::array<char*, 7> arguments{};
  for (std::size_t i = 0; i < words.size(); ++i) arguments[i] = words[i].data();
  Pipe pipe;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe.ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, pipe.ends[1], STDERR_FILENO);
  pid_t child = 0;
  const int error =
      posix_spawnp(&child, words[0].c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return {127, ""};
  pipe.Close(1);
  NodeResult result{0, Read_All(pipe.ends[0])};
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : kNotDecoded;
  return result;
}

std::string First_Line(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

void Decode_Laz(const std::filesystem::path& laz, const std::filesystem::path& las,
                const std::string& name) {
  const NodeResult result =
      Run_Node(std::filesystem::absolute(laz), std::filesystem::absolute(las));
  if (result.status == 0) return;
  if (result.status == 127 || result.status == kNoPackage) {
    throw Refused(name + ": LAZ files are decoded by npm's laz-perf, and " +
                  (result.status == 127 ? "node, which runs it, was" : "it was") +
                  " not found; install node, run \"npm install laz-perf\" in a folder, and set "
                  "NODE_PATH to the node_modules there or SYLVOMEX_LAZPERF to that folder");
  }
  if (result.status == kNotWritten) {
    throw FailedOnTheWay(name + ": its points cannot be written: " + First_Line(result.message));
  }
  throw Refused(name + ": the LAZ file cannot be decoded: " + First_Line(result.message));
}

}  // namespace sylvomex
