// SPDX-License-Identifier: MIT
// A block of vertical photographs invented for tests, with its own drives.
//
// All cameras look straight down (no rotation) with c = 0.1 m and 10 um pixels; film 0, 0 is
// full-image column 1000, row 1000 of 2000 x 2000 pixels. Each pane shows the whole image at
// 1:1 from its top left corner. So with s = c / (Z0 - Z): film x = s (X - X0), column =
// 1000 + 100000 x, pane px = column, pane py = 1999 - row.
#pragma once

#include <memory>
#include <string>

#include "platform/number_text.h"
#include "state/workspace.h"
#include "support/recording_screen.h"
#include "support/temporary_folder.h"

namespace sylvomex {

struct SyntheticBlock {
  static constexpr double kPrincipalDistance = 0.1;

  TemporaryFolder folder;
  RecordingScreen screen;
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  Workspace& w = *block;

  SyntheticBlock() {
    folder.Make_Folder("c/data");
    folder.Make_Folder("c/apu");
    folder.Make_Folder("e");
    w.ObservationFileName = "c:\\data\\points.txt";
  }

  /// A camera above X0, Y0; its ImageId is 100 + index.
  int Add_Camera(double X0, double Y0, double Z0) {
    const int k = w.ImageCount++;
    ImageRecord& record = w.ImageBlock(k);
    record.ImageId = 100 + k;
    record.ColorFlag = 1;
    record.FullWidth = record.FullHeight = 2000;
    record.SubWidth = record.SubHeight = 2000;
    record.PrincipalDistance = kPrincipalDistance;
    record.AffineA1 = record.AffineB2 = 100000;
    record.AffineA0 = record.AffineB0 = 1000;
    record.X0 = X0;
    record.Y0 = Y0;
    record.Z0 = Z0;
    RotationMatrix& m = w.RotationTable(k);
    m.m11 = m.m22 = m.m33 = 1;
    w.ImageKinds(k) = 1;
    w.PaneViews(k) = {0, 0, 2000, 2000, 1, 1};
    return k;
  }

  [[nodiscard]] double Film(double object_offset, int k, double Z) const {
    return kPrincipalDistance * object_offset / (w.ImageBlock(k).Z0 - Z);
  }

  /// Writes film coordinates into the boxes of image k and ticks it.
  void Observe_Film(int k, double x, double y) {
    w.Form1.Text1(2 * k).Text = Full_Text(x);
    w.Form1.Text1(2 * k + 1).Text = Full_Text(y);
    w.Form1.Check1(k).Value = 1;
  }

  /// Sets the exact observation of an object point, with an error in film y.
  void Observe(int k, const Point3D& point, double y_error = 0) {
    Observe_Film(k, Film(point.X - w.ImageBlock(k).X0, k, point.Z),
                 Film(point.Y - w.ImageBlock(k).Y0, k, point.Z) + y_error);
  }

  [[nodiscard]] PanePosition Pane_Of(int k, const Point3D& point) const {
    const double px = 1000 + 100000 * Film(point.X - w.ImageBlock(k).X0, k, point.Z);
    const double row = 1000 + 100000 * Film(point.Y - w.ImageBlock(k).Y0, k, point.Z);
    return {px, 1999 - row};
  }

  const std::vector<Mark>& Marks(int k) { return w.Form1.Picture1(k).marks; }
};

}  // namespace sylvomex
