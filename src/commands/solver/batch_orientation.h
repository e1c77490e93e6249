// SPDX-License-Identifier: MIT
// Batch work over oriented images with fixed file names. The images of the block take no part.
#pragma once

namespace sylvomex {

struct Workspace;

/// Intersects the points of "d:\Ground_points_nothing.txt" from their observations in
/// "d:\ima_obs_4.CSV" for each pair of "d:\Stereo_parit.csv" and appends one line a point to
/// "c:\text2.txt": point id, X, Y, Z, then solved less known X, Y, Z. A point whose rays give no
/// solution is told in a message and has no line. What ends the command leaves the lines of the
/// points before it.
void Compute_Points_From_Pairs(Workspace& w);

/// Writes "e:\lk\InitApprx.txt" anew: where the photographs of "f:\lines.txt" lie on the plane at
/// 140.6 m. A line: name, number of the flight line, X, Y, Z of the film's centre, then X, Y of the
/// four corners. What ends the command leaves the lines before it.
void Compute_initial_apprx(Workspace& w);

}  // namespace sylvomex
