// SPDX-License-Identifier: MIT
// The observation record and its window, Form3.
#pragma once

namespace sylvomex {

struct Workspace;

void Save_measured_point(Workspace& w);

void Form3_Activate(Workspace& w);
void Form3_Accept_And_Save(Workspace& w);  // button, Enter in Text2 to Text4, menu A_and_s
void Form3_Cancel(Workspace& w);           // button, menu C_and_c

}  // namespace sylvomex
