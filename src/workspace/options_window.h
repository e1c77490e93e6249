// SPDX-License-Identifier: MIT
// The options window Form2 and the about window Form4.
#pragma once

namespace sylvomex {

struct Workspace;

void Open_Options_Window(Workspace& w);
void Form2_Activate(Workspace& w);
void Apply_Options_Changes(Workspace& w);
void Form2_Apply(Workspace& w);  // apply, then close
void Form2_Close_Window(Workspace& w);

void Open_About_Window(Workspace& w);
void Form4_OK_Button(Workspace& w);

}  // namespace sylvomex
