// SPDX-License-Identifier: MIT
// Prints how true the image products of the demo site are, and makes the maps of its map session.
#include <cstdio>
#include <exception>
#include <string>

#include "demo/scene/surface_photographs.h"
#include "demo/table/product_table.h"
#include "demo/write/product_session.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

std::vector<std::uint8_t> Read_Bytes(const FilePath& file) {
  const MappedFile mapped(file);
  return {mapped.Bytes().begin(), mapped.Bytes().end()};
}

std::string Percent(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.1f %%", value);
  return text;
}

// The site has the start settings: its scene is made anew for the truth about the targets.
void Print_Table(const DriveMap& drives, const char* transcript) {
  const auto bytes = [&](const std::string& name) { return Read_Bytes(drives.Locate(name)); };
  const Scene scene = Build_Scene({});
  const std::vector<Photograph> strip = Whole_Image_Photographs(Fly_Over(scene));
  std::string text = Table_Text(Compare_Targets(bytes("c:\\data\\demo\\ortho_targets.raw"),
                                                Product_Grid(), Target_Places(scene)));
  text += Table_Text(Compare_Cut_Outs(Read_Whole_File({transcript, transcript})));
  text += "mosaic: " + Percent(100 * Covered_Share(bytes("c:\\data\\demo\\ortho_block.raw"))) +
          " of the cells from an image\n";
  const ImageRecord& image = strip[1].image;
  const auto mask = bytes("d:\\" + std::to_string(image.ImageId) + "_Zonal.raw");
  for (const Zone& zone : Product_Zones(scene)) {
    if (zone.radius < 5) continue;  // only keeps the others whole
    const double pixel = Scale_Number(strip[1].camera, zone.centre.Z) / image.AffineA1;
    text += "zone " + std::to_string(zone.id) + ": pixels beyond those of a flat circle " +
            Percent(Zone_Excess(mask, zone.id, zone.radius, pixel)) + "\n";
  }
  std::fputs(text.c_str(), stdout);
}

void Make_Map(const DriveMap& drives, const std::string& product, const std::string& map,
              int shift) {
  const std::string folder = "c:\\data\\demo\\";
  const OrthoGrid grid = Product_Grid();
  const auto cells = Read_Bytes(drives.Locate(folder + product + ".raw"));
  if (cells.size() != 3 * grid.Cells()) {
    throw RunTimeError(Failure::BadContent, product + ".raw does not have the session's size");
  }
  const std::string raw = folder + map + ".raw";
  Write_Whole_File(drives.Locate(raw), North_Up(cells, grid));
  Write_Whole_File(drives.Locate(folder + map + ".hdr"), Map_Header_Text(raw, grid, shift));
}

}  // namespace

int main(int count, char** arguments) {
  const std::string task = count > 1 ? arguments[1] : "";
  try {
    if (count == 4 && task == "--table") {
      Print_Table(DriveMap(arguments[2]), arguments[3]);
    } else if (count == 3 && task == "--map") {
      Make_Map(DriveMap(arguments[2]), "ortho_ground", "map", 1);
      Make_Map(DriveMap(arguments[2]), "ortho_block", "mosaic", 0);
    } else {
      std::fprintf(stderr,
                   "usage: sylvomex_demo_products --table SITE TRANSCRIPT\n"
                   "       sylvomex_demo_products --map SITE\n");
      return 1;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sylvomex_demo_products: %s\n", error.what());
    return 1;
  }
  return 0;
}
