// SPDX-License-Identifier: MIT
#include "platform/run_time_error.h"

#include <algorithm>
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

std::string_view RunTimeError::About() const {
  constexpr std::size_t kColonAndBlank = 2;
  const std::string_view message = what();
  return message.substr(std::min(message.size(), Failure_Text(kind_).size() + kColonAndBlank));
}

RunTimeError RunTimeError::At(const std::string& place, std::filesystem::path native) const {
  const std::string_view about = About();
  return RunTimeError(kind_, about.empty() ? place : place + ": " + std::string(about),
                      std::move(native));
}

}  // namespace sylvomex
