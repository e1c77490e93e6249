// SPDX-License-Identifier: MIT
// The window that judges a tree-top run: field-measured trees, their matching, six graphs.
#pragma once

namespace sylvomex {

struct Workspace;

/// Opens Form6.
void Show_Results_Window(Workspace& w);

/// Reads a binary field tree file and matches its trees with the clusters of the last search. A
/// file that cannot be used leaves tables and counts as they were; graphs of an older matching are
/// erased.
void Load_Reference_Trees(Workspace& w);

/// Draws the six graphs anew. What cannot be computed ends the command: the graphs after it stay
/// empty.
void Show_Results(Workspace& w);

/// Places the panes of Form6 by its client size; graphs that were shown are drawn anew.
void Form6_Resize(Workspace& w);

}  // namespace sylvomex
