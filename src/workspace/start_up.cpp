// SPDX-License-Identifier: MIT
#include "workspace/start_up.h"

#include "state/workspace.h"
#include "workspace/form_resize.h"
#include "workspace/number_separators.h"

namespace sylvomex {
namespace {

void Form_Load(Workspace& w) {
  w.options = Options();
  w.CurrentImage = -1;
  w.SolutionValid = false;
  w.NextMeasurementNumber = 1;
  w.Form1.Label2.Caption = "Measurement number: 1";
  w.ObservationFileName = "c:\\data\\Lehtomaa\\Pistedata\\PointData.txt";
  w.RasterDemLoaded = false;
  w.Crown.CrownClickOne = false;
  w.Crown.CrownClickTwo = false;
  for (Label& read_out : w.Form1.Label1) read_out.ForeColor = {0, 0, 0};
  Run_Locale_Test(w);
}

}  // namespace

void Start_Workspace(Workspace& w) {
  Form_Load(w);
  w.Form1.Visible = true;
  Form_Resize(w);
  w.DataFolder = "C:\\data";
}

}  // namespace sylvomex
