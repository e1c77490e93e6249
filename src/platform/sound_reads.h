// SPDX-License-Identifier: MIT
// A command reads mapped files by plain memory access, and what could not be read counts as zeros
// there (fault_guard.h). Before it shows or keeps a result it requires that all it read was sound.
// Nobody can forget that: every function that writes a file requires it, and so does the dispatcher
// at the end of every command.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/run_time_error.h"

namespace sylvomex {

class Mapping;

/// What one command reads from mapped files. Scopes nest as commands do; the innermost of the
/// thread is the one that counts. The mappings that it read stay until its end, also when a command
/// inside it opens the file anew.
class ReadScope {
 public:
  ReadScope();
  ~ReadScope();
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

  /// The failure that names the file, since a file that was read here became shorter or unreadable.
  [[nodiscard]] std::optional<RunTimeError> Failed() const;

  void Note(const std::shared_ptr<const Mapping>& mapping);

 private:
  ReadScope* outer_;
  std::vector<std::shared_ptr<const Mapping>> read_;
};

/// Puts a mapping among those that the innermost scope reads. Without a scope it does nothing.
void Note_Read(const std::shared_ptr<const Mapping>& mapping);

/// Throws the failure of the innermost scope of the thread, if it has one.
void Require_Sound_Reads();

}  // namespace sylvomex
