// SPDX-License-Identifier: MIT
#include "faults/random_site.h"

#include <algorithm>
#include <filesystem>

#include "commands/heightmodels/tin_site.h"
#include "platform/number_text.h"
#include "stereo/level_pair.h"
#include "stereo/pair_file.h"
#include "support/flat_model.h"
#include "support/lidar_files.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr int kSide = 160;  // of a photograph, pixels
constexpr double kLidarX = 2516450, kLidarY = 6857050;

SmallImage Photograph(int k) {
  SmallImage photo;
  photo.id = 100 + k;
  photo.width = photo.height = photo.full_width = kSide;
  photo.full_height = kSide + 1;
  photo.start_col = photo.start_row = kSide / 2;
  photo.a0 = photo.b0 = kSide / 2;
  photo.colour = k == 1 ? 1 : 0;
  photo.c = 0.02;
  photo.Z0 = 200;
  photo.X0 = 4.0 * (k - 1);
  return photo;
}

std::string Textured(std::size_t bytes, unsigned step) {
  std::string texture(bytes, '\0');
  unsigned value = 12345;
  for (char& byte : texture)
    byte = static_cast<char>(40 + (value = value * 1103515245 + step) % 97);
  return texture;
}

/// A file cut, lengthened or with other bytes in it.
std::string Damaged_Content(std::string content, std::mt19937& random) {
  const auto below = [&](std::size_t n) { return n == 0 ? 0 : random() % n; };
  switch (random() % 4) {
    case 0:
      return content.substr(0, below(content.size()));
    case 1:
      return content + content;
    case 2:
      for (int i = 0; i < 8 && !content.empty(); ++i) {
        content[below(content.size())] = static_cast<char>(random());
      }
      return content;
    default:
      for (char& c : content) {
        if (c >= '0' && c <= '9' && random() % 9 == 0) c = "0-9.x,"[random() % 6];
      }
      return content;
  }
}

}  // namespace

RandomSite::RandomSite(std::uint32_t seed) {
  for (const char* folder :
       {"c/temp", "c/apu", "c/data/ImaFiles", "c/data/G6/Imafiles", "c/als2004", "c/als2006",
        "c/als2007", "d/data/laser", "e/rovik", "f"}) {
    site_.Folder().Make_Folder(folder);
  }
  Write_Photographs();
  Write_Height_Models();
  Write_Lidar();
  Write_Pair();
  Write_Map();
  Write_Lists();
  List_Sound_Files();
  std::mt19937 random(seed);
  Write_Damaged_Copies(random);
}

void RandomSite::Write_Photographs() const {
  for (int k = 0; k < 3; ++k) {
    const std::string name = "im" + std::to_string(k);
    const SmallImage photo = Photograph(k);
    site_.Write_Image(name, photo);
    const std::size_t bytes = std::size_t{kSide} * kSide * (photo.colour == 1 ? 3 : 1);
    Folder().Write("c/data/" + name + ".raw", Textured(bytes, 12345));
  }
}

void RandomSite::Write_Height_Models() const {
  Write_Flat_Model(Folder(), 2, 38);
  TinSheet sheet;
  sheet.west = sheet.south = -50;
  sheet.east = sheet.north = 50;
  sheet.ground = 12;
  sheet.slope = 0.01;
  Write_Tin(Folder(), "sheet", sheet);
  Write_Level_Raster(Folder(), "chm", -100, -100, 20, 12);
}

void RandomSite::Write_Lidar() const {
  for (const std::string year : {"2004", "2006", "2007"}) {
    Folder().Write("c/data/als" + year + "_path.hdr", "c:\\als" + year + "\\\n");
  }
  std::vector<TestPulse> pulses;
  for (int i = 0; i < 300; ++i) {
    const double x = kLidarX - 15 + i % 30, y = kLidarY - 5 + i / 30;
    pulses.push_back(Single_Echo({x, y, 100.0 + i * 7 % 23, static_cast<std::int16_t>(i), 900}));
  }
  for (const char* year : {"c/als2006", "c/als2007"}) {
    Folder().Write(std::string(year) + "/064_070.bin", Counted_Bytes(pulses));
  }
  std::vector<Test2004Record> records(50, {kLidarX, kLidarY, 110, kLidarX, kLidarY, 101});
  Folder().Write("c/als2004/024_020.bin", Counted_Bytes(records));
}

void RandomSite::Write_Pair() const {
  const StereoPair pair = Level_Pair();
  Folder().Write("c/data/pair.txt", Pair_File_Text(pair));
  const auto bytes = static_cast<std::size_t>(pair.NormalWidth * pair.NormalHeight);
  Folder().Write("c/data/left.raw", Textured(bytes, 12345));
  Folder().Write("c/data/right.raw", Textured(bytes, 54321));
}

void RandomSite::Write_Map() const {
  Folder().Write("c/data/map.raw", Textured(std::size_t{3} * 200 * 150, 777));
  Folder().Write("c/data/map.hdr", "\"c:\\data\\map.raw\"\n-50\n-50\n0.5\n0.5\n200\n150\n1\n");
}

void RandomSite::Write_Lists() const {
  Folder().Write("c/data/JetColorMAP.csv", Test_Colour_Map());
  Folder().Write("c/data/points.txt", "1,2,3,4\n2,5.5,6,7\n3,-4,1,12\n");
  Folder().Write("c/data/cam_data_G6_j.csv", "1,x,0.02,0,0,0,0,0,200,one,c:\\data\\im0.hdr,G6\n");
  Folder().Write("c/data/G6/Imafiles/G6_one.txt", Folder().Read("c/data/im0.hdr"));
  Folder().Write("c/data/polyline.txt", "10,10\n60,12\n50,70\n");
  Folder().Write("c/data/IMA_polyline.txt", "-0.0004,-0.0004\n0.0004,-0.0004\n0,0.0004\n");
  Folder().Write("c/data/XY_polyline.txt", "-4,-4,2\n4,-4,2\n0,5,2\n");
  Folder().Write("c/data/imageobs.txt", "100,1,20,30\n101,1,24,30\n102,2,9,9\n");
}

void RandomSite::List_Sound_Files() {
  for (const auto& entry : fs::recursive_directory_iterator(Folder().Path())) {
    if (!entry.is_regular_file()) continue;
    std::string name = fs::relative(entry.path(), Folder().Path()).string();
    std::ranges::replace(name, '/', '\\');
    sound_.push_back(name.substr(0, 1) + ":" + name.substr(1));
  }
  std::ranges::sort(sound_);
}

void RandomSite::Write_Damaged_Copies(std::mt19937& random) {
  for (const std::string& name : sound_) {
    const FilePath sound = Drives().Locate(name);
    const std::string content = Folder().Read(fs::relative(sound.native, Folder().Path()).string());
    const std::string bad = "c/data/bad_" + sound.native.filename().string();
    Folder().Write(bad, Damaged_Content(content, random));
    damaged_.push_back("c:\\data\\bad_" + sound.native.filename().string());
  }
  for (const char* none :
       {"", "c:\\data", "c:\\none\\x.hdr", "q:\\x.hdr", "/dev/null", "c:\\data\\*"}) {
    damaged_.emplace_back(none);
  }
}

}  // namespace sylvomex
