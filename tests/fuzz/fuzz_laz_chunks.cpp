// SPDX-License-Identifier: MIT
// Chunk tables of LAZ files, read by the script that node runs. The input: 4 bytes points of the
// file, 4 bytes points of a chunk, 2 bytes length of all chunks; the rest is the table.
//
// One node reads them all. It ends, and so does the fuzzing, when a table is taken that contradicts
// its file, when the script throws, or when it takes more than its memory.
#include <sys/socket.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "interchange/laz_script.h"

namespace {

constexpr const char* kDriver = R"js(
'use strict';
const fs = require('fs');
const module_ = { exports: {} };
new Function('module', process.argv[1])(module_);
function take(bytes) {
  for (let at = 0; at < bytes.length;) {
    const count = fs.readSync(3, bytes, at, bytes.length - at);
    if (count === 0) process.exit(0);
    at += count;
  }
  return bytes;
}
while (true) {
  const file = take(Buffer.alloc(take(Buffer.alloc(4)).readUInt32LE(0)));
  const first = file.readUInt32LE(96);
  const table = module_.exports(file.subarray(0, first), file.length,
                                (at, count) => file.subarray(at, at + count));
  if (table) {
    let [at, points] = [first + 8, 0];
    for (const chunk of table) {
      if (chunk.at !== at) process.exit(3);
      at += chunk.bytes;
      points += chunk.count;
    }
    if (at > file.length || points !== file.readUInt32LE(107)) process.exit(3);
  }
  fs.writeSync(3, Buffer.alloc(1));
}
)js";

template <class Value>
void Put(std::vector<std::uint8_t>& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

/// The node that reads the tables, at the other end of a socket.
int Node() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) std::abort();
  if (fork() == 0) {
    close(ends[0]);  // so that node ends when this program does
    dup2(ends[1], 3);
    execlp("node", "node", "--max-old-space-size=512", "-e", kDriver, sylvomex::kLazChunkScript,
           static_cast<char*>(nullptr));
    _exit(127);
  }
  close(ends[1]);
  return ends[0];
}

/// A file of such a table, its chunks empty.
std::vector<std::uint8_t> File_Of(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kHeader = 227, kRecord = 54 + 16;
  std::uint16_t chunk_bytes = 0;
  std::memcpy(&chunk_bytes, data + 8, sizeof chunk_bytes);
  std::vector<std::uint8_t> file(kHeader + kRecord + 8 + chunk_bytes);
  file[25] = 2;
  Put(file, 94, static_cast<std::uint16_t>(kHeader));
  Put(file, 96, static_cast<std::uint32_t>(kHeader + kRecord));
  file[100] = 1;
  file[104] = 1 | 0x80;
  file[105] = 28;
  std::memcpy(file.data() + 107, data, 4);
  std::memcpy(file.data() + kHeader + 2, "laszip encoded", 14);
  Put(file, kHeader + 18, std::uint16_t{22204});
  Put(file, kHeader + 20, std::uint16_t{16});
  file[kHeader + 54] = 2;
  std::memcpy(file.data() + kHeader + 54 + 12, data + 4, 4);
  Put(file, kHeader + kRecord, static_cast<std::uint64_t>(file.size()));
  file.insert(file.end(), data + 10, data + size);
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int node = Node();
  if (size < 10) return 0;
  std::vector<std::uint8_t> sent(4);
  const std::vector<std::uint8_t> file = File_Of(data, size);
  Put(sent, 0, static_cast<std::uint32_t>(file.size()));
  sent.insert(sent.end(), file.begin(), file.end());
  for (std::size_t at = 0; at < sent.size();) {
    const ssize_t count = send(node, sent.data() + at, sent.size() - at, MSG_NOSIGNAL);
    if (count <= 0) std::abort();
    at += static_cast<std::size_t>(count);
  }
  char done = 0;
  if (read(node, &done, 1) != 1) std::abort();
  return 0;
}
