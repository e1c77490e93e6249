// SPDX-License-Identifier: MIT
#include "stereo/pair_file.h"

#include <initializer_list>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr const char* kStartHeight = "165";  // metres, the same for every pair

std::string Row(std::initializer_list<double> values, const char* pattern) {
  std::string line;
  for (const double value : values) {
    if (!line.empty()) line += ',';
    line += Format(value, pattern);
  }
  return line + "\n";
}

std::string Heading(const char* text) { return std::string("\"") + text + "\"\n"; }

std::string Matrix_Rows(const RotationMatrix& m) {
  constexpr const char* kPattern = "0.000000000000";
  return Row({m.m11, m.m12, m.m13}, kPattern) + Row({m.m21, m.m22, m.m23}, kPattern) +
         Row({m.m31, m.m32, m.m33}, kPattern);
}

std::string Side_Text(const StereoImage& side, const char* centre_heading,
                      const char* matrix_heading, const char* interior_heading) {
  std::string text = Heading(centre_heading);
  text += Row({side.centre.X, side.centre.Y, side.centre.Z}, "#.000");
  text += Heading(matrix_heading) + Matrix_Rows(side.rotation) + Matrix_Rows(side.normal);
  text += Heading(interior_heading) + Heading("Focal lenght") + Row({side.c}, "0.000000");
  text += Heading("Affine coefficients");
  for (const double coefficient : {side.A1, side.A2, side.A0, side.B1, side.B2, side.B0}) {
    text += Row({coefficient}, "#.00000000");
  }
  return text;
}

void Skip_Heading(ListReader& file) { file.Read_Text_To_Comma(); }

void Read_Matrix(ListReader& file, RotationMatrix& m) {
  for (double* value : {&m.m11, &m.m12, &m.m13, &m.m21, &m.m22, &m.m23, &m.m31, &m.m32, &m.m33}) {
    *value = file.Read_Double();
  }
}

template <class Number>
Number Above_Zero(const ListReader& file, Number value, const char* what) {
  if (value > 0) return value;
  throw file.Failure_Here(Failure::BadContent, std::string(what) + " is not above 0");
}

std::string Read_Raster_Name(ListReader& file) {
  std::string name = file.Read_Text_To_Comma();
  if (!name.empty()) return name;
  throw file.Failure_Here(Failure::BadContent, "no raster is named");
}

void Read_Side(ListReader& file, StereoImage& side) {
  Skip_Heading(file);
  for (double* value : {&side.centre.X, &side.centre.Y, &side.centre.Z}) {
    *value = file.Read_Double();
  }
  Skip_Heading(file);
  Read_Matrix(file, side.rotation);
  Read_Matrix(file, side.normal);
  Skip_Heading(file);
  Skip_Heading(file);
  side.c = Above_Zero(file, file.Read_Double(), "the principal distance");
  Skip_Heading(file);
  for (double* value : {&side.A1, &side.A2, &side.A0, &side.B1, &side.B2, &side.B0}) {
    *value = file.Read_Double();
  }
}

void Read_Raster_Extent(ListReader& file, StereoPair& pair) {
  Skip_Heading(file);
  pair.ColorMode = file.Read_Int32();
  Skip_Heading(file);
  pair.Xmin = file.Read_Double();
  pair.Ymax = file.Read_Double();
  pair.PixelWidth = Above_Zero(file, file.Read_Double(), "the pixel size");
  Skip_Heading(file);
  pair.NormalWidth = Above_Zero(file, file.Read_Int16(), "the width");
  pair.NormalHeight = Above_Zero(file, file.Read_Int16(), "the height");
}

}  // namespace

std::string Pair_File_Text(const StereoPair& pair) {
  std::string text = Heading("Normalized image pair ");
  text += Heading(pair.left.raster.c_str()) + Heading(pair.right.raster.c_str());
  text += Heading("Color Mode ") + Plain_Text(pair.ColorMode) + "\n";
  text += Heading("Xmin, Ymax, pixelwidth");
  text += Row({pair.Xmin, pair.Ymax, pair.PixelWidth}, "0.0000000");
  text += Heading("Width, Height (pixels)");
  text += Format(pair.NormalWidth, "#####") + "," + Format(pair.NormalHeight, "######") + "\n";
  text += Side_Text(pair.left, "Projection center, letf image", "Normal matrix, left image",
                    "Interior ori, left image");
  text += Side_Text(pair.right, "Projection center, right image", "Normal matrix, right image",
                    "Interior ori, right image");
  text += Heading("Start point");
  text += Format(pair.right.centre.X, "#.00") + "," + Format(pair.right.centre.Y, "#.00") + "," +
          kStartHeight + "\n";
  return text;
}

StereoPair Read_Pair_File(ListReader& file) {
  StereoPair pair;
  Skip_Heading(file);
  pair.left.raster = Read_Raster_Name(file);
  pair.right.raster = Read_Raster_Name(file);
  Read_Raster_Extent(file, pair);
  Read_Side(file, pair.left);
  Read_Side(file, pair.right);
  Skip_Heading(file);
  for (double* value : {&pair.start.X, &pair.start.Y, &pair.start.Z}) *value = file.Read_Double();
  return pair;
}

}  // namespace sylvomex
