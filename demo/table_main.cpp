// SPDX-License-Identifier: MIT
// Prints how well a session measured or found the tree tops of the demo site, what its lidar
// campaigns observed, and how its height models agree.
#include <cstdio>
#include <exception>
#include <string>

#include "demo/table/accuracy_table.h"
#include "demo/table/detection_table.h"
#include "demo/table/lidar_table.h"
#include "demo/table/residual_table.h"
#include "demo/table/stereo_table.h"
#include "demo/table/surface_table.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

FilePath Native(const char* name) { return {name, name}; }

int Print_Detection(char** arguments) {
  const auto clusters = Read_Clusters(Native(arguments[3]));
  const auto plot = Read_Searched_Plot(Read_Whole_File(Native(arguments[1])));
  const auto table = Compare_Clusters(clusters, Read_True_Trees(Native(arguments[2])), plot);
  std::fputs(Table_Text(table).c_str(), stdout);
  return 0;
}

int Print_Lidar(const char* site) {
  std::fputs(Lidar_Table_Of_Site(site).c_str(), stdout);
  return 0;
}

int Print_Residuals(const char* file) {
  const ResidualTable table = Compare_Models(Read_Compared_Points(Native(file)));
  std::fputs(Table_Text(table).c_str(), stdout);
  return 0;
}

// The site has the default settings: its scene is generated again as the truth for the nodes.
int Print_Surfaces(const char* folder) {
  std::fputs(Table_Text(Surface_Samples_Of(folder, Build_Scene({}))).c_str(), stdout);
  return 0;
}

int Print_Stereo(const char* site, const char* transcript) {
  std::fputs(Stereo_Table_Of_Site(site, Read_Whole_File(Native(transcript))).c_str(), stdout);
  return 0;
}

int Print_Table(int count, char** arguments) {
  const std::string first = count > 1 ? arguments[1] : "";
  if (count == 3 && first == "--lidar") return Print_Lidar(arguments[2]);
  if (count == 3 && first == "--residuals") return Print_Residuals(arguments[2]);
  if (count == 4 && first == "--stereo") return Print_Stereo(arguments[2], arguments[3]);
  if (count == 3 && first == "--surfaces") return Print_Surfaces(arguments[2]);
  if (count == 4) return Print_Detection(arguments);
  if (count != 3 && !(count == 5 && std::string(arguments[3]) == "--seconds")) {
    throw RunTimeError(Failure::BadContent,
                       "usage: sylvomex_demo_table TRANSCRIPT TRUTH [--seconds S]\n"
                       "       sylvomex_demo_table TRANSCRIPT TRUTH NODES\n"
                       "       sylvomex_demo_table --lidar SITE\n"
                       "       sylvomex_demo_table --residuals FILE\n"
                       "       sylvomex_demo_table --surfaces FOLDER\n"
                       "       sylvomex_demo_table --stereo SITE TRANSCRIPT");
  }
  std::optional<double> seconds;
  if (count == 5) seconds = Parse_Double(arguments[4]);
  const auto measured = Read_Measured_Tops(Read_Whole_File(Native(arguments[1])));
  const auto table = Compare_With_Truth(measured, Read_True_Tops(Native(arguments[2])));
  if (!table) {
    throw RunTimeError(Failure::BadContent,
                       std::string(arguments[1]) + ": no measured tree of " + arguments[2]);
  }
  std::fputs(Table_Text(*table, seconds).c_str(), stdout);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return Print_Table(count, arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sylvomex_demo_table: %s\n", error.what());
    return 1;
  }
}
