// SPDX-License-Identifier: MIT
#include "solver/point_lists.h"

namespace sylvomex {
namespace {

template <class Row>
std::vector<Row> Read_Rows(ListReader& list, Row (*read)(ListReader&)) {
  std::vector<Row> rows;
  while (!list.At_End()) rows.push_back(read(list));
  return rows;
}

GroundPoint Read_Ground_Point(ListReader& list) {
  GroundPoint point;
  point.point_id = list.Read_Int32();
  list.Read_Int32();
  point.position.X = list.Read_Double();
  point.position.Y = list.Read_Double();
  point.position.Z = list.Read_Double();
  return point;
}

FilmPointObservation Read_Film_Point(ListReader& list) {
  FilmPointObservation point;
  point.image_id = list.Read_Int32();
  point.point_id = list.Read_Int32();
  point.x = list.Read_Double();
  point.y = list.Read_Double();
  return point;
}

std::string Read_Header_Name(ListReader& list) {
  std::string name = list.Read_Text();
  if (name.empty()) throw list.Failure_Here(Failure::BadContent, "no image header is named");
  return name;
}

HeaderPair Read_Header_Pair(ListReader& list) {
  list.Skip_Empty_Lines();
  list.Read_Text();
  list.Read_Text();
  HeaderPair pair;
  pair.first = Read_Header_Name(list);
  pair.second = Read_Header_Name(list);
  return pair;
}

FlightImage Read_Flight_Image(ListReader& list) {
  list.Skip_Empty_Lines();
  FlightImage image;
  image.header = Read_Header_Name(list);
  for (double* const value :
       {&image.line_number, &image.angle, &image.half_length, &image.half_width}) {
    *value = list.Read_Double();
  }
  return image;
}

}  // namespace

std::vector<GroundPoint> Read_Ground_Points(ListReader list) {
  return Read_Rows(list, Read_Ground_Point);
}

std::vector<FilmPointObservation> Read_Film_Points(ListReader list) {
  return Read_Rows(list, Read_Film_Point);
}

std::vector<HeaderPair> Read_Header_Pairs(ListReader list) {
  return Read_Rows(list, Read_Header_Pair);
}

std::vector<FlightImage> Read_Flight_Images(ListReader list) {
  return Read_Rows(list, Read_Flight_Image);
}

}  // namespace sylvomex
