// SPDX-License-Identifier: MIT
// Our own table, CSV with the header line
// name,width,height,f_mm,pixel_mm,x0_mm,y0_mm,omega,phi,kappa,X0,Y0,Z0 and where known
// k1,k2,k3,p1,p2 and utc. Columns are found by name.
#include "interchange/csv_table.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

constexpr int kMostPixels = 10'000'000;  // a side; the size of the raw file is judged at the import

PhotoGiven Photo_Of_Row(const CsvTable& table, const TextRow& row) {
  PhotoGiven photo;
  photo.line = row.line;
  photo.name = table.Text(row, "name");
  CameraGiven& camera = photo.camera;
  camera.width = table.Whole(row, "width", 1, kMostPixels);
  camera.height = table.Whole(row, "height", 1, kMostPixels);
  camera.f_mm = table.Number(row, "f_mm");
  camera.pixel_mm = camera.pixel_y_mm = table.Number(row, "pixel_mm");
  if (!(camera.pixel_mm > 0)) table.Refuse(row, "pixel_mm is not positive");
  camera.pp_x = table.Number(row, "x0_mm") / camera.pixel_mm;
  camera.pp_y = table.Number(row, "y0_mm") / camera.pixel_mm;
  photo.numbers = {table.Number(row, "omega"), table.Number(row, "phi"), table.Number(row, "kappa"),
                   0};
  photo.position = {table.Number(row, "X0"), table.Number(row, "Y0"), table.Number(row, "Z0")};
  camera.lens = {
      table.Optional_Number(row, "k1").value_or(0), table.Optional_Number(row, "k2").value_or(0),
      table.Optional_Number(row, "k3").value_or(0), table.Optional_Number(row, "p1").value_or(0),
      table.Optional_Number(row, "p2").value_or(0)};
  photo.utc = table.Optional_Text(row, "utc");
  return photo;
}

}  // namespace

OrientationTable Parse_Plain_Table(const NamedText& text) {
  const CsvTable table(text.text, text.name);
  OrientationTable parsed;
  for (const TextRow& row : table.Rows()) parsed.photos.push_back(Photo_Of_Row(table, row));
  return parsed;
}

}  // namespace sylvomex
