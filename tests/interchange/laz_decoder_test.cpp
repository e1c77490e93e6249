// SPDX-License-Identifier: MIT
// The running of the decoder, with a package in the place of laz-perf whose "compressed" points are
// as they stand.
#include "interchange/laz_decoder.h"

#include <gtest/gtest.h>

#include <cstring>

#include "interchange/failures.h"
#include "interchange/las_header.h"
#include "support/environment_variable.h"
#include "support/las_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr const char* kStandIn = R"js(
const memory = new Uint8Array(1 << 22);
let used = 8;
const library = {
  HEAPU8: memory,
  _malloc(size) { used += size; return used - size; },
  _free() {},
  ChunkDecoder: class {  // gives the first point of a chunk again and again
    open(format, length, start) { [this.length, this.start] = [length, start]; }
    getPoint(to) { memory.copyWithin(to, this.start, this.start + this.length); }
    delete() {}
  },
  LASZip: class {
    open(start, size) {
      this.view = new DataView(memory.buffer, start, size);
      this.at = start + this.view.getUint32(96, true);
      this.length = this.view.getUint16(105, true);
      if (this.view.getUint32(107, true) === 666) throw 12345;
      if (this.view.getUint32(107, true) === 667) throw '12345 - Exception catching is disabled';
    }
    getCount() { return this.view.getUint32(107, true); }
    getPointLength() { return this.length; }
    getPoint(to) { memory.copyWithin(to, this.at, this.at + this.length); this.at += this.length; }
  }
};
exports.create = async () => library;
)js";

template <class Value>
void Put(std::string& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

struct LazDecoder : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path las = folder.Path() / "out.las";

  std::string Compressed(int count = -1) {
    TestLas file;
    for (int i = 0; i < 70000; ++i) file.points.push_back({384000.0 + i % 100, 6675000, 1.0 * i});
    file.count = count;
    std::string bytes = file.Bytes();
    bytes[104] = static_cast<char>(bytes[104] | '\x80');
    return folder.Write("a.laz", bytes).native.string();
  }

  /// A file of chunks. chunk: the points of each, 0xFFFFFFFF for chunks that differ; table: what
  /// stands behind the chunks. The first bytes of a chunk are its number.
  std::string Chunked(std::uint32_t chunk, std::uint32_t points,
                      const std::vector<std::uint32_t>& chunk_bytes, const std::string& table) {
    std::string record(16, '\0');
    Put(record, 0, std::uint16_t{2});
    Put(record, 12, chunk);
    std::string head(54, '\0');
    head.replace(2, 14, "laszip encoded");
    Put(head, 18, std::uint16_t{22204});
    Put(head, 20, std::uint16_t{16});
    TestLas file;
    file.count = points;
    std::string bytes = file.Bytes() + head + record;
    bytes[104] = static_cast<char>(bytes[104] | '\x80');
    Put(bytes, 96, static_cast<std::uint32_t>(bytes.size()));
    Put(bytes, 100, std::uint32_t{1});
    std::uint64_t table_at = bytes.size() + 8;
    for (const std::uint32_t length : chunk_bytes) table_at += length;
    bytes.resize(bytes.size() + 8);
    Put(bytes, bytes.size() - 8, table_at);
    for (std::size_t i = 0; i < chunk_bytes.size(); ++i) {
      bytes += std::string(1, static_cast<char>('a' + i)) + std::string(chunk_bytes[i] - 1, '\1');
    }
    return folder.Write("a.laz", bytes + table).native.string();
  }

  /// For every point of the decoded file the letter of its chunk.
  std::string Letters() const {
    const std::string bytes = folder.Read("out.las");
    const LasHeader header = Read_Las_Header(las, "out.las");
    std::string letters;
    for (std::uint64_t i = 0; i < header.count; ++i) {
      letters += bytes[header.points_at + i * static_cast<std::uint64_t>(header.record_bytes)];
    }
    return letters;
  }

  std::string Refusal(const std::string& laz) {
    try {
      Decode_Laz(laz, las, "a.laz");
    } catch (const Refused& refusal) {
      return refusal.what();
    }
    return "none";
  }
};

TEST_F(LazDecoder, ThePackageIsFoundThroughNodePath) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string laz = Compressed();
  Decode_Laz(laz, las, "a.laz");
  const LasHeader header = Read_Las_Header(las, "out.las");
  EXPECT_FALSE(header.compressed);
  EXPECT_EQ(header.count, 70000U);
  EXPECT_EQ(folder.Read("out.las").substr(227), folder.Read("a.laz").substr(227));
}

TEST_F(LazDecoder, ThePackageIsFoundThroughItsOwnVariable) {
  folder.Write("here/node_modules/laz-perf/index.js", kStandIn);
  const EnvironmentVariable none("NODE_PATH", "");
  const EnvironmentVariable own("SYLVOMEX_LAZPERF", (folder.Path() / "here").string());
  Decode_Laz(Compressed(), las, "a.laz");
  EXPECT_EQ(Read_Las_Header(las, "out.las").count, 70000U);
}

TEST_F(LazDecoder, WithoutThePackageTheMessageSaysHowToInstallIt) {
  const EnvironmentVariable none("NODE_PATH", "");
  const EnvironmentVariable own("SYLVOMEX_LAZPERF", "");
  EXPECT_NE(Refusal(Compressed()).find("\"npm install laz-perf\""), std::string::npos);
}

TEST_F(LazDecoder, WithoutNodeTheMessageSaysSo) {
  const EnvironmentVariable path("PATH", folder.Path().string());
  EXPECT_NE(Refusal(Compressed()).find("laz-perf, and node, which runs it, was not found"),
            std::string::npos);
}

TEST_F(LazDecoder, DamagedPointsAreRefused) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  for (const int damage : {666, 667}) {  // as a number, and as a text with a hint
    EXPECT_EQ(Refusal(Compressed(damage)),
              "a.laz: the LAZ file cannot be decoded: its points are damaged");
  }
}

TEST_F(LazDecoder, AFileThatThePackageCannotHoldIsRefused) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string laz = Compressed();
  std::filesystem::resize_file(laz, std::uintmax_t{1} << 31);  // holes take no room on the disk
  EXPECT_EQ(Refusal(laz),
            "a.laz: the LAZ file cannot be decoded: it has no sound table of its chunks, and its "
            "2147483648 bytes are too many to be held whole");
}

// The tables of chunks were coded by an encoder after the published format, apart from this code.
std::string Bytes_Of(const std::string& hexadecimal) {
  std::string bytes;
  for (std::size_t i = 0; i < hexadecimal.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hexadecimal.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

const std::vector<std::uint32_t> kUnlikeChunks{400, 120, 9000, 1500000, 60, 29};
constexpr const char* kUnlikeTable =
    "000000000600000023878e077c39e570f3b179cdfe7eba4894c43b5e1c1d55c1bd00000000";

TEST_F(LazDecoder, ChunksOfOneSizeAreReadOneByOne) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string table = Bytes_Of("00000000030000003c4e60a4201000000000");
  Decode_Laz(Chunked(5, 12, {100, 37, 20000}, table), las, "a.laz");
  EXPECT_EQ(Letters(), "aaaaabbbbbcc");
}

TEST_F(LazDecoder, ChunksOfDifferentSizesAreReadOneByOne) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  Decode_Laz(Chunked(0xFFFFFFFF, 70716, kUnlikeChunks, Bytes_Of(kUnlikeTable)), las, "a.laz");
  EXPECT_EQ(Letters(), std::string(10, 'a') + "bbb" + std::string(700, 'c') +
                           std::string(70000, 'd') + "e" + "ff");
}

TEST_F(LazDecoder, AFileWhoseTableContradictsItIsHeldWhole) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string table = Bytes_Of("00000000030000003c4e60a4201000000000");
  for (const std::uint32_t bytes : {36U, 38U}) {
    const std::string laz = Chunked(5, 12, {100, bytes, 20000}, table);
    Decode_Laz(laz, las, "a.laz");
    const LasHeader header = Read_Las_Header(las, "out.las");
    EXPECT_EQ(folder.Read("out.las").substr(header.points_at),
              folder.Read("a.laz").substr(header.points_at, 12 * 28));
  }
}

TEST_F(LazDecoder, MoreChunksThanTheFileHasRoomForTakeNoMemory) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const EnvironmentVariable path("NODE_PATH", (folder.Path() / "lib").string());
  // 2^26 chunks, which zeros tell in 13 kB: as objects they would be more than node can hold.
  const std::string table = Bytes_Of("0000000000000004") + std::string(20000, '\0');
  const std::string laz = Chunked(5, 12, {100, 37, 20000}, table);
  Decode_Laz(laz, las, "a.laz");
  const LasHeader header = Read_Las_Header(las, "out.las");
  EXPECT_EQ(folder.Read("out.las").substr(header.points_at),
            folder.Read("a.laz").substr(header.points_at, 12 * 28));
}

}  // namespace
}  // namespace sylvomex
