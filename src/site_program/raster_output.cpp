// SPDX-License-Identifier: MIT
#include "site_program/raster_output.h"

#include "interchange/raster_import.h"
#include "platform/number_text.h"

namespace sylvomex {

int Run_Import_Raster(const RasterArguments& arguments, const std::string& model,
                      SiteOutput& output) {
  ImportTransaction transaction(arguments.site);
  const RasterReport report = Import_Raster(transaction, arguments.files, model, output.Progress());
  for (const std::string& note : report.notes) output.Warn(note);
  output.Say("c:\\data\\models\\" + model + ".hdr: " + std::to_string(report.columns) +
             " columns, " + std::to_string(report.rows) + " rows of " + Plain_Text(report.cell) +
             " m, " + std::to_string(report.no_data) + " cells without data");
  output.object["header"] = "c:\\data\\models\\" + model + ".hdr";
  output.object["columns"] = report.columns;
  output.object["rows"] = report.rows;
  output.object["cell_size"] = report.cell;
  output.object["no_data"] = report.no_data;
  output.object["notes"] = report.notes;
  return kDone;
}

}  // namespace sylvomex
