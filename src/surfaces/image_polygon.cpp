// SPDX-License-Identifier: MIT
#include "surfaces/image_polygon.h"

#include <string>

#include "platform/list_reader.h"

namespace sylvomex {

std::vector<MapPoint> Read_Image_Polygon(const FilePath& file) {
  ListReader list(file);
  std::vector<MapPoint> vertices;
  while (!list.At_End()) {
    MapPoint vertex;
    vertex.X = list.Read_Double();
    if (vertices.size() == kMostPolygonVertices) {
      throw list.Failure_Here(
          Failure::SubscriptOutOfRange,
          "a polygon has " + std::to_string(kMostPolygonVertices) + " vertices at most");
    }
    vertex.Y = list.Read_Double();
    vertices.push_back(vertex);
  }
  return vertices;
}

}  // namespace sylvomex
