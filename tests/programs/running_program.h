// SPDX-License-Identifier: MIT
// The program as a process of its own.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace sylvomex {

class RunningProgram {
 public:
  /// Starts sylvomex with these arguments; its standard output and standard error go to files.
  RunningProgram(std::vector<std::string> arguments, const std::filesystem::path& out,
                 const std::filesystem::path& err) {
    arguments.insert(arguments.begin(), SYLVOMEX_PROGRAM);
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), flags, 0644);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), flags, 0644);
    const int failed = posix_spawn(&process_, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error("cannot start " + arguments[0]);
  }
  ~RunningProgram() { Kill(); }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  /// The exit status; -1 when it was killed.
  int Wait() {
    int status = 0;
    if (process_ > 0) waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  void Kill() {
    if (process_ > 0) kill(process_, SIGKILL);
    Wait();
  }

  /// True while it runs.
  [[nodiscard]] bool Runs() const {
    siginfo_t info = {};
    const int kFlags = WEXITED | WNOHANG | WNOWAIT;
    return process_ > 0 && waitid(P_PID, static_cast<id_t>(process_), &info, kFlags) == 0 &&
           info.si_pid == 0;
  }

 private:
  pid_t process_ = -1;
};

}  // namespace sylvomex
