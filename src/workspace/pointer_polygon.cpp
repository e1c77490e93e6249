// SPDX-License-Identifier: MIT
#include "workspace/pointer_polygon.h"

#include <vector>

#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

struct Vertex {
  PixelPosition pixel;
  FilmPosition film;  // set together with the ground position only
  Point3D ground;     // at the solution's height; X and Y are 0 for a horizontal ray
};

Vertex Vertex_At(Workspace& w, int pane, double px, double py) {
  Vertex vertex;
  vertex.pixel = Pane_To_Full_Image(w.ImageBlock(pane), w.PaneViews(pane), px, py);
  if (w.Menu.Draw_XYZ_Polygon) {
    const Camera camera = Camera_Of(w, pane);
    const double Z = w.Solution3D.Z;
    vertex.film = Pixel_To_Image(camera, vertex.pixel);
    vertex.ground = Image_To_Object_At_Z(camera, Z, vertex.film).value_or(Point3D{0, 0, Z});
  }
  return vertex;
}

std::string Pixel_Line(const Vertex& vertex, const char* pattern) {
  return Format(vertex.pixel.col, pattern) + "," + Format(vertex.pixel.row, pattern) + "\n";
}

std::string Film_Line(const Vertex& vertex) {
  return Format(vertex.film.x, "#.000000") + "," + Format(vertex.film.y, "#.000000") + "\n";
}

std::string Ground_Line(const Point3D& ground) {
  return Format(ground.X, "#.000") + "," + Format(ground.Y, "#.000") + "," +
         Format(ground.Z, "#.000") + "\n";
}

std::vector<PanePosition> Read_Polyline(Workspace& w, int pane) {
  ListReader file(w.Drives.Locate(kPixelPolylineFile));
  std::vector<PanePosition> vertices;
  while (!file.At_End()) {
    const double col = file.Read_Double();
    const double row = file.Read_Double();
    vertices.push_back(Full_Image_To_Pane(w.ImageBlock(pane), w.PaneViews(pane), col, row));
  }
  return vertices;
}

void Draw_Side(Picture& picture, const PanePosition& from, const PanePosition& to) {
  picture.DrawWidth = 1;
  Draw_Line(picture, from.px, from.py, to.px, to.py, kRed);
}

}  // namespace

void Start_Polygon(Workspace& w, int pane, double px, double py) {
  w.PolygonActive = true;
  const Vertex vertex = Vertex_At(w, pane, px, py);
  if (w.Menu.Draw_XYZ_Polygon) {
    Write_Whole_File(w.Drives.Locate(kGroundPolylineFile), Ground_Line(vertex.ground));
  }
  Write_Whole_File(w.Drives.Locate(kPixelPolylineFile), Pixel_Line(vertex, "#.00"));
  Write_Whole_File(w.Drives.Locate(kFilmPolylineFile), Film_Line(vertex));
}

void Add_Polygon_Vertex(Workspace& w, int pane, double px, double py) {
  const Vertex vertex = Vertex_At(w, pane, px, py);
  if (w.Menu.Draw_XYZ_Polygon) {
    Append_To_File(w.Drives.Locate(kGroundPolylineFile), Ground_Line(vertex.ground));
  }
  Append_To_File(w.Drives.Locate(kPixelPolylineFile), Pixel_Line(vertex, "#.000"));
  Append_To_File(w.Drives.Locate(kFilmPolylineFile), Film_Line(vertex));
  const std::vector<PanePosition> vertices = Read_Polyline(w, pane);
  Picture& picture = w.Form1.Picture1(pane);
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    Draw_Side(picture, vertices[i - 1], vertices[i]);
  }
}

void Close_Polygon(Workspace& w, int pane) {
  w.PolygonActive = false;
  const std::vector<PanePosition> vertices = Read_Polyline(w, pane);
  if (vertices.empty()) return;
  Picture& picture = w.Form1.Picture1(pane);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    picture.DrawWidth = 3;
    Plot_Point(picture, vertices[i].px - 1, vertices[i].py - 1, kGreen);
    if (i > 0) Draw_Side(picture, vertices[i - 1], vertices[i]);
  }
  Draw_Side(picture, vertices.back(), vertices.front());
}

}  // namespace sylvomex
