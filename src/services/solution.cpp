// SPDX-License-Identifier: MIT
#include "services/solution.h"

#include "state/workspace.h"

#include <string_view>

#include "platform/number_text.h"
#include "services/status_line.h"

namespace sylvomex {

void Show_Point(Workspace& w, const Point3D& point, const char* pattern) {
  const bool plain = std::string_view(pattern).empty();
  const double values[] = {point.X, point.Y, point.Z};
  for (int i = 0; i < 3; ++i) {
    w.Form1.Label4(i).Caption = plain ? Plain_Text(values[i]) : Format(values[i], pattern);
  }
}

void Show_Solution(Workspace& w, const char* pattern) { Show_Point(w, w.Solution3D, pattern); }

void Record_Solution(Workspace& w) {
  w.Observation.MeasurementNumber = w.NextMeasurementNumber;
  w.Observation.X = w.Solution3D.X;
  w.Observation.Y = w.Solution3D.Y;
  w.Observation.Z = w.Solution3D.Z;
}

void Accept_Solution(Workspace& w) {
  w.SolutionValid = true;
  Record_Solution(w);
  Show_Status(w, "3D-value set succesfully");
  Show_Solution(w, kPlainNumbers);
}

}  // namespace sylvomex
