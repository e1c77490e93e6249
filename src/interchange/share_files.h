// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/output_file.h"

namespace sylvomex {

/// The echoes of many shares on disk. Neighbouring shares lie in one file, in pieces, so that any
/// number of shares needs few open files.
class ShareFiles {
 public:
  static constexpr std::size_t kMostFiles = 32;

  /// shares: at most so many; new_file: gives the path of a new file.
  ShareFiles(std::size_t shares,
             const std::function<std::filesystem::path(const std::string&)>& new_file);

  /// Adds echoes behind those of a share. FailedOnTheWay on a full disk.
  void Append(std::size_t share, std::span<const EchoRecord> echoes);

  /// All are added. FailedOnTheWay on a full disk.
  void Finish();

  /// The shares up to the last one that has echoes.
  [[nodiscard]] std::size_t Count() const;

  /// The echoes of a share in the order in which they were added, over the former content. After
  /// Finish, each share below Count() once, from any thread: a file goes with its last share.
  void Read(std::size_t share, std::vector<EchoRecord>& echoes);

 private:
  struct Share {
    std::vector<EchoRecord> waiting;    // for a whole piece
    std::vector<std::uint64_t> pieces;  // their places in the file, echoes
    std::uint64_t written = 0;          // echoes
  };
  struct File {
    std::filesystem::path path;
    std::unique_ptr<OutputFile> output;
    std::uint64_t echoes = 0;
    std::atomic<std::size_t> unread = 0;  // shares
  };
  File& File_Of(std::size_t share) { return files_[share / shares_of_file_]; }
  void Write_Piece(std::size_t share);

  std::function<std::filesystem::path(const std::string&)> new_file_;
  std::size_t shares_of_file_;
  std::size_t piece_;  // echoes; the last piece of a share may have fewer
  std::vector<Share> shares_;
  std::vector<File> files_;
};

}  // namespace sylvomex
