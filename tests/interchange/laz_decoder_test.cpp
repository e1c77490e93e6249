// SPDX-License-Identifier: MIT
// The running of the decoder, with a package in the place of laz-perf whose "compressed" points are
// as they stand.
#include "interchange/laz_decoder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "interchange/failures.h"
#include "interchange/las_header.h"
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

/// An environment variable for a scope.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (old_) {
      setenv(name_, old_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

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
  const Variable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string laz = Compressed();
  Decode_Laz(laz, las, "a.laz");
  const LasHeader header = Read_Las_Header(las, "out.las");
  EXPECT_FALSE(header.compressed);
  EXPECT_EQ(header.count, 70000U);
  EXPECT_EQ(folder.Read("out.las").substr(227), folder.Read("a.laz").substr(227));
}

TEST_F(LazDecoder, ThePackageIsFoundThroughItsOwnVariable) {
  folder.Write("here/node_modules/laz-perf/index.js", kStandIn);
  const Variable none("NODE_PATH", "");
  const Variable own("SYLVOMEX_LAZPERF", (folder.Path() / "here").string());
  Decode_Laz(Compressed(), las, "a.laz");
  EXPECT_EQ(Read_Las_Header(las, "out.las").count, 70000U);
}

TEST_F(LazDecoder, WithoutThePackageTheMessageSaysHowToInstallIt) {
  const Variable none("NODE_PATH", "");
  const Variable own("SYLVOMEX_LAZPERF", "");
  EXPECT_NE(Refusal(Compressed()).find("\"npm install laz-perf\""), std::string::npos);
}

TEST_F(LazDecoder, WithoutNodeTheMessageSaysSo) {
  const Variable path("PATH", folder.Path().string());
  EXPECT_NE(Refusal(Compressed()).find("laz-perf, and node, which runs it, was not found"),
            std::string::npos);
}

TEST_F(LazDecoder, DamagedPointsAreRefused) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const Variable path("NODE_PATH", (folder.Path() / "lib").string());
  for (const int damage : {666, 667}) {  // as a number, and as a text with a hint
    EXPECT_EQ(Refusal(Compressed(damage)),
              "a.laz: the LAZ file cannot be decoded: its points are damaged");
  }
}

TEST_F(LazDecoder, AFileThatThePackageCannotHoldIsRefused) {
  folder.Write("lib/laz-perf/index.js", kStandIn);
  const Variable path("NODE_PATH", (folder.Path() / "lib").string());
  const std::string laz = folder.Write("a.laz", "LASF").native.string();
  std::filesystem::resize_file(laz, std::uintmax_t{1} << 31);  // holes take no room on the disk
  EXPECT_EQ(Refusal(laz),
            "a.laz: the LAZ file cannot be decoded: laz-perf holds the whole file, and its "
            "2147483648 bytes are too many; split it");
}

}  // namespace
}  // namespace sylvomex
