// SPDX-License-Identifier: MIT
// The text files and binary files in which the workstation keeps points, read as tables with world
// coordinates. Every field of a line becomes a column; map positions among the fields are world
// coordinates too.
//
// Refused, naming file, line and field, for what is no such file. Empty lines are passed over.
#pragma once

#include "interchange/point_table.h"
#include "interchange/site_record.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// The observation file: nine fields, a comment, then ids, columns and rows of the images, as many
/// columns each as the line with the most images has.
PointTable Read_Observations(const FilePath& file, const Site& site);

/// The distance file: five fields, then fourteen for each image.
PointTable Read_Distances(const FilePath& file, const Site& site);

/// The tree tops of "Find clusters": number, X, Y, Z; or nodes without a number.
PointTable Read_Clusters(const FilePath& file, const Site& site);

/// Crowns, told apart by the number of fields: stored trees (15), measures of local crowns (20), or
/// a crown list (6).
PointTable Read_Crowns(const FilePath& file, const Site& site);

/// Points of surface matching: X, Y, Z and perhaps a fourth number; score, X, Y, Z in "testi.txt".
PointTable Read_Surface(const FilePath& file, const Site& site);

/// Field trees: the binary tree file, or the plot text file with its trees put in place.
PointTable Read_Trees(const FilePath& file, const Site& site);

}  // namespace sylvomex
