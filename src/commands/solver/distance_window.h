// SPDX-License-Identifier: MIT
// The distance record and its window, Form7.
#pragma once

namespace sylvomex {

struct Workspace;

void Save_XY_Distances(Workspace& w);

void Form7_Activate(Workspace& w);
void Form7_Save_Close_And_Reset(Workspace& w);
void Form7_Reset_And_Close(Workspace& w);
void Form7_Return_To_Main(Workspace& w);
void Form7_Text1_Enter(Workspace& w);
void Form7_Text2_Enter(Workspace& w);
void Form7_Text2_First_Key(Workspace& w);  // before a key reaches an empty Text2
void Form7_Text3_Enter(Workspace& w, int item);

}  // namespace sylvomex
