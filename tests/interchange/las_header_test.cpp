// SPDX-License-Identifier: MIT
#include "interchange/las_header.h"

#include <gtest/gtest.h>

#include <tuple>

#include "interchange/failures.h"
#include "interchange/las_points.h"
#include "support/failing_calls.h"
#include "support/las_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

LasHeader Parse(const std::string& bytes) {
  return Parse_Las_Header({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()},
                          bytes.size(), "a.las");
}

std::string Refusal_Of(const std::string& bytes) {
  try {
    Parse(bytes);
  } catch (const Refused& refusal) {
    return refusal.what();
  }
  return "no refusal";
}

TestLas One_Point(int format, int minor) {
  TestLas las;
  las.format = format;
  las.minor = minor;
  las.points = {{384001.25, 6675002.5, 123.456, 2, 3, 1234.5, 777, 5, -12, 42}};
  return las;
}

TEST(LasHeader, EveryPointFormatIsRead) {
  for (int format = 0; format <= 10; ++format) {
    const TestLas las = One_Point(format, format >= 6 ? 4 : 2);
    const std::string bytes = las.Bytes();
    const LasHeader header = Parse(bytes);
    EXPECT_EQ(header.format, format);
    EXPECT_EQ(header.count, 1U);
    const auto* record = reinterpret_cast<const std::uint8_t*>(bytes.data() + header.points_at);
    const LasPoint point(record, format);
    EXPECT_EQ(point.Position(0), 1250) << format;
    EXPECT_EQ(point.Position(1), 2500);
    EXPECT_EQ(point.Position(2), 123456);
    EXPECT_EQ(point.Intensity(), 777);
    EXPECT_EQ(point.Returns(), 2 + 16 * 3) << format;
    EXPECT_EQ(point.Classification(), 5) << format;
    EXPECT_EQ(point.Angle(), -2000) << format;  // -12 degrees in units of 0.006
    EXPECT_EQ(point.Line(), 42);
    if (Las_Has_Time(format)) {
      EXPECT_EQ(point.Time(), 1234.5) << format;
    }
  }
}

TEST(LasHeader, AFileThatCannotBeReadAnyFurtherIsRefused) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.las", One_Point(6, 4).Bytes());
  int before = 0;
  for (;; ++before) {
    const FailingCall failing(SystemCall::Read, EIO, before);
    std::string refusal = "no refusal";
    try {
      Read_Las_Header(file.native, "a.las");
    } catch (const Refused& refused) {
      refusal = refused.what();
    }
    if (!FailingCall::Has_Happened()) break;
    EXPECT_EQ(refusal, "a.las: the file cannot be read any further") << before;
  }
  EXPECT_GT(before, 0);
}

TEST(LasHeader, EveryVersionIsRead) {
  for (int minor = 0; minor <= 4; ++minor) {
    EXPECT_EQ(Parse(One_Point(1, minor).Bytes()).minor, minor);
  }
}

TEST(LasHeader, PointsMayBeLongerThanTheirFormat) {
  TestLas las = One_Point(1, 2);
  las.extra_bytes = 7;
  las.points.push_back(las.points.front());
  const LasHeader header = Parse(las.Bytes());
  EXPECT_EQ(header.record_bytes, 35);
  EXPECT_EQ(header.count, 2U);
}

TEST(LasHeader, AnotherKindOfFileIsRefused) {
  EXPECT_EQ(Refusal_Of("PK\x03\x04 some archive"), "a.las: no LAS file");
  EXPECT_EQ(Refusal_Of(""), "a.las: no LAS file");
}

TEST(LasHeader, ACutHeaderIsRefusedAtEveryLength) {
  const std::string bytes = One_Point(6, 4).Bytes();
  for (std::size_t length = 4; length < bytes.size(); ++length) {
    EXPECT_NE(Refusal_Of(bytes.substr(0, length)), "no refusal") << length;
  }
}

TEST(LasHeader, UnknownVersionsAndFormatsAreRefused) {
  TestLas las = One_Point(1, 2);
  std::string bytes = las.Bytes();
  bytes[25] = 5;
  EXPECT_EQ(Refusal_Of(bytes), "a.las: LAS 1.5; versions 1.0 to 1.4 are read");
  bytes[25] = 2;
  bytes[104] = 11;
  EXPECT_EQ(Refusal_Of(bytes), "a.las: point format 11; formats 0 to 10 are read");
}

TEST(LasHeader, ATooShortRecordIsRefused) {
  std::string bytes = One_Point(3, 2).Bytes();
  TestLas::Put(bytes, 105, std::uint16_t{28});
  EXPECT_EQ(Refusal_Of(bytes), "a.las: a point record of 28 bytes; those of format 3 have 34");
}

TEST(LasHeader, AScaleOfZeroIsRefused) {
  TestLas las = One_Point(1, 2);
  las.scale[1] = 0;
  EXPECT_EQ(Refusal_Of(las.Bytes()), "a.las: scale 0 and offset 6675000 of Y give no coordinates");
}

TEST(LasHeader, PointsThatBeginInTheHeaderAreRefused) {
  std::string bytes = One_Point(1, 2).Bytes();
  TestLas::Put(bytes, 96, std::uint32_t{0});
  EXPECT_EQ(Refusal_Of(bytes),
            "a.las: the points are said to begin at byte 0, within the header of 227 bytes");
}

TEST(LasHeader, AWrongNumberOfPointsIsRefused) {
  TestLas las = One_Point(1, 2);
  las.count = 3;
  EXPECT_EQ(Refusal_Of(las.Bytes()),
            "a.las: the header counts 3 points and the file is cut short, it holds 1");
  las.count = 0;
  EXPECT_EQ(Refusal_Of(las.Bytes()), "a.las: the header counts 0 points and the file holds 1");
}

TEST(LasHeader, CountsThatContradictEachOtherAreRefused) {
  std::string bytes = One_Point(1, 4).Bytes();
  TestLas::Put(bytes, 107, std::uint32_t{8});
  EXPECT_EQ(Refusal_Of(bytes), "a.las: its two numbers of points differ, 8 and 1");
}

TEST(LasHeader, ExtendedRecordsBehindThePointsAreNoPoints) {
  std::string bytes = One_Point(6, 4).Bytes();
  TestLas::Put(bytes, 235, static_cast<std::uint64_t>(bytes.size()));
  TestLas::Put(bytes, 243, std::uint32_t{1});
  EXPECT_EQ(Parse(bytes + std::string(500, 'x')).count, 1U);
}

/// An extended record of version 1.4: 60 bytes of header, then the content.
std::string Extended_Record(const std::string& user, std::uint16_t id, const std::string& content) {
  std::string record(60, '\0');
  record.replace(2, user.size(), user);
  TestLas::Put(record, 18, id);
  TestLas::Put(record, 20, std::uint64_t{content.size()});
  return record + content;
}

std::string With_Extended(std::string bytes, std::uint32_t count, const std::string& records) {
  TestLas::Put(bytes, 235, std::uint64_t{bytes.size()});
  TestLas::Put(bytes, 243, count);
  return bytes + records;
}

TEST(LasHeader, OnlyVersionOneFourPrefersKeysToWkt) {
  constexpr std::size_t kEncodingAt = 6;
  for (const auto& [minor, encoding, keys_count] :
       {std::tuple(4, 0x01, true), std::tuple(4, 0x10, false), std::tuple(3, 0x01, false)}) {
    std::string bytes = One_Point(1, minor).Bytes();
    TestLas::Put(bytes, kEncodingAt, static_cast<std::uint16_t>(encoding));
    EXPECT_EQ(Parse(bytes).keys_count, keys_count) << minor << " " << encoding;
  }
}

TEST(LasHeader, TheSystemMayStandInAnExtendedRecordBehindThePoints) {
  const TemporaryFolder folder;
  const std::string other = Extended_Record("another", 2112, "no system");
  const std::string system = Extended_Record("LASF_Projection", 2112, "PROJCS[...]");
  const std::string bytes = With_Extended(One_Point(6, 4).Bytes(), 2, other + system);
  const LasHeader header = Read_Las_Header(folder.Write("a.las", bytes).native, "a.las");
  EXPECT_EQ(header.count, 1U);
  ASSERT_EQ(header.records.size(), 1U);
  EXPECT_EQ(header.records[0].id, 2112);
  const auto& content = header.records[0].content;
  EXPECT_EQ(std::string(content.begin(), content.end()), "PROJCS[...]");
}

TEST(LasHeader, ExtendedRecordsThatAreCutShortAreLeft) {
  const TemporaryFolder folder;
  const std::string system = Extended_Record("LASF_Projection", 2112, "PROJCS[...]");
  for (std::size_t length = 0; length < system.size(); ++length) {
    const std::string bytes =
        With_Extended(One_Point(6, 4).Bytes(), 0xFFFFFFFFU, system.substr(0, length));
    const LasHeader header = Read_Las_Header(folder.Write("a.las", bytes).native, "a.las");
    EXPECT_EQ(header.count, 1U);
    EXPECT_TRUE(header.records.empty()) << length;
  }
}

}  // namespace
}  // namespace sylvomex
