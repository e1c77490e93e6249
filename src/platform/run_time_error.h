// SPDX-License-Identifier: MIT
// The system's only exception type: thrown by the platform layer and the bounds-checked tables,
// caught either by a command with handling of its own or by the dispatcher.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace sylvomex {

enum class Failure {
  Overflow,
  DivisionByZero,
  SubscriptOutOfRange,
  TypeMismatch,
  FileNotFound,
  PathNotFound,
  FileAlreadyOpen,
  InputPastEnd,
  PermissionDenied,
  DiskFull,
  FileFailure,
  BadContent,
  OutOfMemory,
};

/// The words that open the message of a failure, e.g. "File not found".
std::string_view Failure_Text(Failure kind);

/// A failure that ends a command. what() is one sentence fit for a message box:
/// "<Failure_Text>: <about>", or the bare Failure_Text when about is empty.
class RunTimeError : public std::runtime_error {
 public:
  /// about: the value, file, line and item concerned, in the operator's terms.
  /// native: the file's path on this machine, empty when no file is concerned.
  explicit RunTimeError(Failure kind, const std::string& about = {},
                        std::filesystem::path native = {});

  [[nodiscard]] Failure Kind() const { return kind_; }
  [[nodiscard]] const std::filesystem::path& Native_Path() const { return native_; }

  /// The message after the kind; valid as long as the exception object.
  [[nodiscard]] std::string_view About() const;

  /// The same error with the place where it happened prefixed to its description.
  [[nodiscard]] RunTimeError At(const std::string& place, std::filesystem::path native = {}) const;

 private:
  Failure kind_;
  std::filesystem::path native_;
};

}  // namespace sylvomex
