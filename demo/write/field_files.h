// SPDX-License-Identifier: MIT
// What a field crew would record on a plot around a tree, without errors: positions of the trees in
// a local system, lists and borders in map coordinates, tie points. X east, Y north, metres.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

inline constexpr double kFieldPlotRadius = 25;  // metres

/// The local system of the field plot: x and y rotated anticlockwise by the angle, then shifted.
struct FieldPlot {
  double angle_deg = 0;
  double X0 = 0, Y0 = 0, Z0 = 0;
  double DX = 0, DY = 0, DZ = 0;
  std::vector<std::size_t> trees;  // within kFieldPlotRadius of the centre, indices in the stand
  double X = 0, Y = 0;             // centre
};

/// The plot around a tree.
FieldPlot Make_Field_Plot(const Scene& scene, std::size_t centre);

/// Seven header values; then one line per tree "x,y,z,Dbh,height,id,species,code": local position
/// of the stem's base, Dbh in mm, species 1 pine, 2 spruce, 3 birch, code 1 dominant (17 m or
/// more), 2 others of 13 m or more, 3 the rest.
std::string Field_Plot_Text(const Scene& scene, const FieldPlot& plot);

/// One line per tree "X,Y,Dbh,species,height,id,flag"; the flag is 1 for 13 m or more, else 0.
std::string Tree_List_Text(const Scene& scene, const FieldPlot& plot);

/// "id,X1,Y1,X2,Y2": the border of the plot as a polygon of 24 sides.
std::string Border_Text(const FieldPlot& plot);

/// One line per vertex "X,Y,Z" of a closed polygon of 12 sides on the ground, 15 m around the
/// centre.
std::string Ground_Polygon_Text(const Scene& scene, const FieldPlot& plot);

/// One line per tree "id,X,Y" and five values: crown radius, m; crown length as a share of the
/// height; exponent of the outline (0.5 for the half ellipse of a pine); RMSE of the crown model,
/// m; number of photographs that show the top.
std::string Regression_Text(const Scene& scene, const std::vector<Photograph>& photos,
                            const FieldPlot& plot);

/// One line "ImageId point-id column top-down-row" for every photograph that shows the top of a
/// tree.
std::string Tie_Point_Text(const Scene& scene, const std::vector<Photograph>& photos,
                           const FieldPlot& plot);

/// "X,Y" every 2 m along a line through the forest.
std::string Transect_Text();

/// "X,Y,Z" of 400 ground points, spread over the forest.
std::string Ground_Points_Text(const Scene& scene);

/// Number, X, Y, three unused values, height above ground, an unused value.
std::string Plot_Location_Text(const FieldPlot& plot);

/// Writes all of them under their drive names.
void Write_Field_Files(const Scene& scene, const std::vector<Photograph>& photos,
                       const FieldPlot& plot, const DriveMap& drives);

}  // namespace sylvomex::demo
