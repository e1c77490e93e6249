// SPDX-License-Identifier: MIT
#include "commands/solver/solution_texts.h"

#include "platform/number_text.h"

namespace sylvomex {

void Show_Point(Workspace& w, const Point3D& point, const char* pattern) {
  w.Form1.Label4(0).Caption = Format(point.X, pattern);
  w.Form1.Label4(1).Caption = Format(point.Y, pattern);
  w.Form1.Label4(2).Caption = Format(point.Z, pattern);
}

void Show_Point_Plain(Workspace& w, const Point3D& point) {
  w.Form1.Label4(0).Caption = Plain_Text(point.X);
  w.Form1.Label4(1).Caption = Plain_Text(point.Y);
  w.Form1.Label4(2).Caption = Plain_Text(point.Z);
}

void Record_Solution(Workspace& w) {
  w.Observation.MeasurementNumber = w.NextMeasurementNumber;
  w.Observation.X = w.Solution3D.X;
  w.Observation.Y = w.Solution3D.Y;
  w.Observation.Z = w.Solution3D.Z;
}

}  // namespace sylvomex
