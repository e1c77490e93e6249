// SPDX-License-Identifier: MIT
// Triangulates a node file with lines of X, Y, Z and possibly further numbers.
#include <cstdio>
#include <exception>
#include <sstream>

#include "demo/scene/delaunay.h"
#include "demo/write/mesh_files.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

std::vector<MeshNode> Read_Nodes(const FilePath& file) {
  std::vector<MeshNode> nodes;
  std::istringstream text(Read_Whole_File(file));
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    ListReader list(line, file, ++number);
    MeshNode node;
    for (double* value : {&node.X, &node.Y, &node.Z}) *value = list.Read_Double();
    nodes.push_back(node);
  }
  return nodes;
}

void Write_Triangulation(const std::string& nodes, const std::string& result) {
  const SurfaceMesh mesh = Triangulate(Read_Nodes({nodes, nodes}));
  Write_Whole_File({result + ".nod", result + ".nod"}, Node_Text(mesh));
  Write_Whole_File({result + ".tri", result + ".tri"}, Triangle_Text(mesh));
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count != 3) {
      throw RunTimeError(Failure::BadContent,
                         "usage: sylvomex_demo_triangles NODES RESULT_WITHOUT_EXTENSION");
    }
    Write_Triangulation(arguments[1], arguments[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sylvomex_demo_triangles: %s\n", error.what());
    return 1;
  }
}
