// SPDX-License-Identifier: MIT
// Compares the tree tops that a run over the whole stand found with the truth of the site, and
// draws them on an orthoimage.
#include <cstdio>
#include <exception>
#include <string>

#include "demo/chain/region_map.h"
#include "demo/scene/site_settings.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "session/picture_png.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

constexpr const char* kUsage =
    "sylvomex_demo_region --table TRUTH TOPS\n"
    "sylvomex_demo_region --map TRUTH TOPS RGB_BYTES WIDTH HEIGHT CELL PNG\n";

FilePath Native(const std::string& name) { return {name, name}; }

/// A circle about the whole stand and beyond.
SearchedPlot Whole_Stand() {
  return {kForestWest + kForestSide / 2, kForestSouth + kForestSide / 2, 2 * kForestSide};
}

void Print_Table(char** arguments) {
  const DetectionTable table = Compare_Clusters(
      Read_Tops(Native(arguments[3])), Read_True_Trees(Native(arguments[2])), Whole_Stand());
  std::fputs(Table_Text(table).c_str(), stdout);
}

void Draw_Map(char** arguments) {
  const MappedFile bytes(Native(arguments[4]));
  const StandImage image{Parse_Int32(arguments[5]), Parse_Int32(arguments[6]), bytes.Bytes()};
  const Picture map =
      Draw_Region_Map(image, Read_Tops(Native(arguments[3])), Read_True_Trees(Native(arguments[2])),
                      Parse_Double(arguments[7]));
  Save_Picture_Png(map, arguments[8]);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const std::string what = count > 1 ? arguments[1] : "";
    if (count == 4 && what == "--table") {
      Print_Table(arguments);
    } else if (count == 9 && what == "--map") {
      Draw_Map(arguments);
    } else {
      throw RunTimeError(Failure::BadContent, "wrong arguments");
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sylvomex_demo_region: %s\n%s", error.what(), kUsage);
    return 1;
  }
}
