// SPDX-License-Identifier: MIT
#include "platform/run_time_error.h"

#include <utility>

namespace sylvomex {

namespace {

std::string Message(Failure kind, const std::string& about) {
  std::string text(Failure_Text(kind));
  if (!about.empty()) text += ": " + about;
  return text;
}

}  // namespace

std::string_view Failure_Text(Failure kind) {
  switch (kind) {
    case Failure::Overflow:
      return "Overflow";
    case Failure::DivisionByZero:
      return "Division by zero";
    case Failure::SubscriptOutOfRange:
      return "Subscript out of range";
    case Failure::TypeMismatch:
      return "Type mismatch";
    case Failure::FileNotFound:
      return "File not found";
    case Failure::PathNotFound:
      return "Path not found";
    case Failure::FileAlreadyOpen:
      return "File already open";
    case Failure::InputPastEnd:
      return "Input past end of file";
    case Failure::PermissionDenied:
      return "Permission denied";
    case Failure::DiskFull:
      return "Disk full";
    case Failure::FileFailure:
      return "File error";
    case Failure::BadContent:
      return "Bad content";
    case Failure::OutOfMemory:
      return "Out of memory";
  }
  return "File error";
}

RunTimeError::RunTimeError(Failure kind, const std::string& about, std::filesystem::path native)
    : std::runtime_error(Message(kind, about)), kind_(kind), native_(std::move(native)) {}

}  // namespace sylvomex
