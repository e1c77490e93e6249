// SPDX-License-Identifier: MIT
// Batch work on oriented images with fixed file names. The images of the block are not used.
#pragma once

namespace sylvomex {

struct Workspace;

/// Intersects the points of "d:\Ground_points_nothing.txt" from their observations in
/// "d:\ima_obs_4.CSV" for each pair of "d:\Stereo_parit.csv" and appends one line per point to
/// "c:\text2.txt": point id, X, Y, Z, then solved minus known X, Y, Z. A point whose rays give no
/// solution is reported in a message box and gets no line. When the command ends early, the lines
/// of earlier points stay.
void Compute_Points_From_Pairs(Workspace& w);

/// Rewrites "e:\lk\InitApprx.txt": footprints of the photographs of "f:\lines.txt" on the plane at
/// 140.6 m. A line: name, number of the flight line, X, Y, Z of the film's centre, then X, Y of the
/// four corners. When the command ends early, the earlier lines stay.
void Compute_initial_apprx(Workspace& w);

}  // namespace sylvomex
