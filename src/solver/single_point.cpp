// SPDX-License-Identifier: MIT
#include "solver/single_point.h"

#include <string>

#include "platform/list_reader.h"

namespace sylvomex {
namespace {

// The line as a list of its own.
ListReader First_Line(const FilePath& file) {
  ListReader whole(file);
  std::string line;
  int number = whole.Line();
  while (line.find_first_not_of(" \t\r") == std::string::npos && !whole.At_End()) {
    number = whole.Line();
    line = whole.Read_Line();
  }
  return {line, file, number};
}

}  // namespace

NumberedPoint Read_Numbered_Point(const FilePath& file) {
  ListReader line = First_Line(file);
  NumberedPoint value;
  value.number = line.Read_Int16();
  value.point.X = line.Read_Double();
  value.point.Y = line.Read_Double();
  value.point.Z = line.Read_Double();
  return value;
}

PlotLocation Read_Plot_Location(const FilePath& file) {
  ListReader line = First_Line(file);
  PlotLocation plot;
  plot.PlotNumber = line.Read_Int32();
  plot.X = line.Read_Double();
  plot.Y = line.Read_Double();
  for (int ignored = 0; ignored < 3; ++ignored) line.Read_Double();
  plot.HeightAboveGround = line.Read_Double();
  if (line.At_End()) throw line.Failure_Here(Failure::InputPastEnd, "8 values wanted");
  return plot;
}

}  // namespace sylvomex
