// SPDX-License-Identifier: MIT
#include "workspace/panes/overlay_points.h"

#include "closedlib/parallel_tasks.h"

namespace sylvomex {
namespace {

// From an object point to a pane, with everything that stays the same for an image taken out
// of the records. The order of operations is that of the camera model and the pane formulas.
class OverlayProjection {
 public:
  OverlayProjection(const Workspace& w, int image)
      : OverlayProjection(w.ImageBlock(image), w.RotationTable(image)) {
    if (w.ImageKinds(image) == 2) {
      const ImageRecord& correlation = w.CorrelationRecords(image);
      Take_View(correlation, w.CorrelationPaneViews(image));
      bottom_row_ = correlation.SubRowOrigin - w.CorrelationPaneViews(image).ViewRow;
    } else {
      const ImageRecord& record = w.ImageBlock(image);
      Take_View(record, w.PaneViews(image));
      bottom_row_ = record.FullHeight - 1;
      top_row_ = w.PaneViews(image).ViewRow + record.SubRowOrigin;
    }
  }

  [[nodiscard]] PanePosition Of(const OverlayPoint& point) const {
    const double dX = point.X - X0_;
    const double dY = point.Y - Y0_;
    const double dZ = point.Z - Z0_;
    const double q = m_.m31 * dX + m_.m32 * dY + m_.m33 * dZ;
    double x = -1;
    double y = 0;
    if (minus_c_ != 0 && q != 0) {
      x = minus_c_ * (m_.m11 * dX + m_.m12 * dY + m_.m13 * dZ) / q;
      y = minus_c_ * (m_.m21 * dX + m_.m22 * dY + m_.m23 * dZ) / q;
    }
    const double col = a1_ * x + a2_ * y + a0_;
    const double row = b1_ * x + b2_ * y + b0_;
    return {(col - left_col_) * zoom_x_ - 1, ((bottom_row_ - row) - top_row_) * zoom_y_ - 1};
  }

 private:
  OverlayProjection(const ImageRecord& image, const RotationMatrix& m)
      : m_(m),
        X0_(image.X0),
        Y0_(image.Y0),
        Z0_(image.Z0),
        minus_c_(-image.PrincipalDistance),
        a1_(image.AffineA1),
        a2_(image.AffineA2),
        a0_(image.AffineA0),
        b1_(image.AffineB1),
        b2_(image.AffineB2),
        b0_(image.AffineB0) {}

  void Take_View(const ImageRecord& image, const PaneView& view) {
    left_col_ = view.ViewCol + image.SubColOrigin;
    zoom_x_ = view.ZoomX;
    zoom_y_ = view.ZoomY;
  }

  RotationMatrix m_;
  double X0_, Y0_, Z0_, minus_c_;
  double a1_, a2_, a0_, b1_, b2_, b0_;
  double left_col_ = 0, bottom_row_ = 0, top_row_ = 0;
  double zoom_x_ = 0, zoom_y_ = 0;
};

void Plot_On_Pane(Workspace& w, int image, std::span<const OverlayPoint> points) {
  const OverlayProjection projection(w, image);
  Picture& pane = w.Form1.Picture1(image);
  pane.marks.reserve(pane.marks.size() + points.size());
  for (const OverlayPoint& point : points) {
    const PanePosition at = projection.Of(point);
    Plot_Point(pane, at.px, at.py, point.colour);
  }
}

}  // namespace

void Plot_Overlay_Points(Workspace& w, std::span<const OverlayPoint> points) {
  Run_Tasks(w.ImageCount, 0, [&](int image) { Plot_On_Pane(w, image, points); });
}

}  // namespace sylvomex
