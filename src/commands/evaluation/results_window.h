// SPDX-License-Identifier: MIT
// The window that evaluates a tree-top run: field-measured trees, their matching, six graphs.
#pragma once

namespace sylvomex {

struct Workspace;

/// Opens Form6.
void Show_Results_Window(Workspace& w);

/// Reads a binary field tree file and matches its trees with the clusters of the last search. A
/// file that cannot be used leaves tables and counts unchanged; the graphs of an earlier matching
/// are erased.
void Load_Reference_Trees(Workspace& w);

/// Redraws the six graphs. The first one that cannot be computed ends the command; the graphs after
/// it stay empty.
void Show_Results(Workspace& w);

/// Places the panes of Form6 for its client size and redraws the graphs if they were shown.
void Form6_Resize(Workspace& w);

}  // namespace sylvomex
