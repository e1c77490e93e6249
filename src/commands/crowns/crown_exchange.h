// SPDX-License-Identifier: MIT
// The files through which a crown's linearised problem reaches its solver:
//
//   c:\data\A_txt.txt       row, column and value of every cell of the design
//   c:\data\L_txt.txt       the misclosures
//   c:\data\weights.txt     "1.00" for each of them
//   c:\Data\matlab.txt      N, 3 and 3 N
//   c:\data\corr_vectN.txt  the solver's answer: corrections to a, p and b
//
// One item of a column a line; rows and columns count from 1.
#pragma once

#include "crowns/crown_fit.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// A solver that writes the four files, solves, writes its answer and reads that back. A problem
/// without a solution leaves the answer file as it was.
CrownSolver Solver_With_Files(const DriveMap& drives);

}  // namespace sylvomex
