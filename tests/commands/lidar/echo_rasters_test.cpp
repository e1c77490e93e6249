// SPDX-License-Identifier: MIT
#include "commands/lidar/echo_rasters.h"

#include <gtest/gtest.h>

#include "commands/lidar/lidar_block.h"
#include "heightmodels/raster_model.h"

namespace sylvomex {
namespace {

// Records as found by a reader with a stride of 25 bytes. Only the fields of the last echo are
// written: for record i (from 1) at 4 + 25 (i - 1) they occupy bytes 72 to 91, the first 20
// of a slot of 25 bytes, so that neighbours do not overlap.
std::string Dense_Tile(const std::vector<Test2004Record>& records) {
  std::string bytes = Announced_Bytes(static_cast<std::int32_t>(records.size()), 72);
  for (const Test2004Record& record : records) {
    Append_Value(bytes, record.last_X);
    Append_Value(bytes, record.last_Y);
    Append_Value(bytes, record.last_Z);
    bytes += std::string(5, '\0');
  }
  return bytes;
}

struct EchoRasters : LidarBlock, testing::Test {
  void Answer(const std::vector<std::string>& answers) {
    for (const std::string& answer : answers) screen.inputs.push_back(answer);
  }
  void Write_Dense(const std::string& tile, const std::vector<Test2004Record>& records) {
    folder.Write("d/data/laser/" + tile, Dense_Tile(records));
  }
  std::vector<float> Cells(const std::string& name) {
    const std::string bytes = folder.Read("d/data/laser/" + name);
    std::vector<float> cells(bytes.size() / 4);
    std::memcpy(cells.data(), bytes.data(), bytes.size());
    return cells;
  }
  static Test2004Record Last(double X, double Y, float Z) { return {0, 0, 0, X, Y, Z}; }
};

// Tile 001_002 of 2004: 2514100 to 2514200 east, 6855200 to 6855300 north.
TEST_F(EchoRasters, CellsTakeMeanAndMinimumAndTheirFilesAreWritten) {
  Write_Dense("001_002.bin", {Last(2514110.5, 6855219.5, 150), Last(2514110.7, 6855219.4, 170),
                              Last(2514112.4, 6855218.6, 155), Last(2514111, 6855219.5, 10)});
  Answer({"2514110", "6855220", "3.5", "2.2", "1"});
  Create_CHM_from_ALS(w);
  // Three columns, two rows, the north row first; the echo at 2514111 lies on an edge.
  EXPECT_EQ(Cells("CHM.bin"), (std::vector<float>{160, 160, 160, 160, 160, 155}));
  EXPECT_EQ(Cells("DEM.bin"), (std::vector<float>{150, 160, 160, 160, 160, 155}));
  EXPECT_EQ(folder.Read("d/data/laser/CHM.hdr"),
            "3\n2\n2514110\n6855220\n1\n-9999\n\"D:\\data\\laser\\CHM.bin\"\n");
  EXPECT_EQ(folder.Read("d/data/laser/DEM.hdr"),
            "3\n2\n2514110\n6855220\n1\n-9999\n\"D:\\data\\laser\\DEM.bin\"\n");
}

TEST_F(EchoRasters, AsksFiveQuestionsInOrder) {
  Answer({"2514110", "6855220", "1", "1", "1"});
  Create_CHM_from_ALS(w);
  std::vector<std::string> prompts;
  for (const auto& box : screen.input_boxes) prompts.push_back(box.prompt);
  EXPECT_EQ(prompts, (std::vector<std::string>{
                         "Give X for the upper left corner (of the DEM-pixel)",
                         "Give Y for the upper left corner (of the DEM-pixel)",
                         "Give width in X, m", "Give height in Y, m", "Give gridcell size, m "}));
}

TEST_F(EchoRasters, ADismissedQuestionEndsQuietlyAndWritesNothing) {
  Answer({"2514110", "6855220"});
  screen.inputs.emplace_back(std::nullopt);
  Create_CHM_from_ALS(w);
  EXPECT_EQ(screen.input_boxes.size(), 3U);
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_FALSE(folder.Has("d/data/laser/CHM.bin"));
}

TEST_F(EchoRasters, ACellWithoutATileGets160) {
  Answer({"2514110", "6855220", "2", "1", "1"});
  Create_CHM_from_ALS(w);
  EXPECT_EQ(Cells("CHM.bin"), (std::vector<float>{160, 160}));
  EXPECT_EQ(Cells("DEM.bin"), (std::vector<float>{160, 160}));
  EXPECT_FALSE(folder.Has("d/data/laser/001_002.bin"));
}

TEST_F(EchoRasters, EachCellReadsOnlyTheTileOfItsCentre) {
  // Cells of 4 m around 2514200, where two tiles meet: an echo of the western tile inside the
  // eastern cell's square does not count for that cell.
  Write_Dense("001_002.bin", {Last(2514199, 6855298, 150), Last(2514201, 6855298, 900)});
  Write_Dense("002_002.bin", {Last(2514203, 6855298, 120)});
  Answer({"2514196", "6855300", "8", "8", "4"});
  Create_CHM_from_ALS(w);
  EXPECT_EQ(Cells("CHM.bin"), (std::vector<float>{150, 120, 160, 160}));
}

TEST_F(EchoRasters, ReadsRecordsEvery25BytesOfAFileOfFullRecords) {
  // With records of 100 bytes only the first of every four strides holds whole fields.
  std::vector<Test2004Record> records(5, Last(2514110.5, 6855219.5, 150));
  records[0].last_Z = 140;  // read as record 1
  records[1].last_Z = 146;  // read as record 5
  records[2].last_Z = 9;    // stride 9 is beyond the count of 5
  folder.Write("d/data/laser/001_002.bin", Counted_Bytes(records));
  Answer({"2514110", "6855220", "1", "1", "1"});
  Create_CHM_from_ALS(w);
  EXPECT_EQ(Cells("CHM.bin"), std::vector<float>{143});
  EXPECT_EQ(Cells("DEM.bin"), std::vector<float>{140});
}

TEST_F(EchoRasters, ReportsEachColumnAndServicesEvents) {
  std::vector<std::string> labels;
  screen.on_service = [&] { labels.push_back(w.Form1.Label2.Caption); };
  Answer({"2514110", "6855220", "3", "2", "1"});
  Create_CHM_from_ALS(w);
  EXPECT_EQ(labels, (std::vector<std::string>{"1 rows", "2 rows", "3 rows"}));
}

TEST_F(EchoRasters, IndicesInTheNameAreNotTruncated) {
  // 1234 columns of tiles east of the origin, 5 tiles west of it.
  Write_Dense("1234_-005.bin", {Last(2514000 + 123450.5, 6855000 - 450.5, 131)});
  Answer({"2637450", "6854550", "1", "1", "1"});
  Create_CHM_from_ALS(w);
  EXPECT_EQ(Cells("CHM.bin"), std::vector<float>{131});
}

TEST_F(EchoRasters, AnswersWithoutAGridEndIt) {
  const auto failure = [&](const std::vector<std::string>& answers) {
    screen.inputs.clear();
    Answer(answers);
    return Failure_Of([&] { Create_CHM_from_ALS(w); });
  };
  EXPECT_EQ(failure({"east"}).substr(0, 13), "Type mismatch");
  EXPECT_EQ(failure({"1", "2", "10", "10", "0"}), "Division by zero: gridcell size 0");
  EXPECT_EQ(failure({"1", "2", "-10", "10", "1"}).substr(0, 21), "Overflow: width in X:");
  EXPECT_EQ(failure({"1", "2", "10", "1e9", "1"}).substr(0, 22), "Overflow: height in Y:");
  EXPECT_FALSE(folder.Has("d/data/laser/CHM.bin"));
}

TEST_F(EchoRasters, AnInvalidTileIsNamed) {
  folder.Write("d/data/laser/001_002.bin", Announced_Bytes(9, 200));
  Answer({"2514110", "6855220", "1", "1", "1"});
  EXPECT_EQ(Failure_Of([&] { Create_CHM_from_ALS(w); }),
            "Bad content: D:\\data\\laser\\001_002.bin, 9 records of 25 bytes need 229 bytes, the "
            "file has 204");
}

}  // namespace
}  // namespace sylvomex
