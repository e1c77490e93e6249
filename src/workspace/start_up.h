// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// The start routine: loads and shows the main window at its client size (set beforehand in
/// Form1.ClientWidth and ClientHeight) and sets the data folder. Loading sets the defaults and
/// runs the locale test, whose file errors propagate to the caller as RunTimeError.
void Start_Workspace(Workspace& w);

}  // namespace sylvomex
