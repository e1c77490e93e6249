// SPDX-License-Identifier: MIT
#include "desktop_aids/measured_dock.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "panes/pane_drawing.h"
#include "panes/shown_raster.h"

namespace sylvomex {

MeasuredDock::MeasuredDock(const AidedPanes& panes)
    : QDockWidget(QStringLiteral("Measured"), &panes.Owner().Shown().Main()),
      panes_(panes),
      model_(panes.Block()) {
  setObjectName(QStringLiteral("MeasuredDock"));
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
  auto* inside = new QWidget(this);
  filter_ = new QLineEdit(inside);
  filter_->setPlaceholderText(QStringLiteral("Lines that contain ..."));
  filter_->setAccessibleName(QStringLiteral("Filter of the measured points"));
  filter_->setClearButtonEnabled(true);
  count_ = new QLabel(inside);
  table_ = new QTableView(inside);
  table_->setAccessibleName(QStringLiteral("Measured points"));
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->setSortingEnabled(false);
  table_->horizontalHeader()->setSectionsClickable(true);
  table_->horizontalHeader()->setSortIndicatorShown(true);
  auto* layout = new QVBoxLayout(inside);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(filter_);
  layout->addWidget(count_);
  layout->addWidget(table_);
  setWidget(inside);
  hide();
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    model_.Filter(Block_Text(text));
    Show_Count();
  });
  connect(table_->horizontalHeader(), &QHeaderView::sortIndicatorChanged, &model_,
          &MeasuredModel::sort);
  connect(table_, &QTableView::clicked, this, [this](const QModelIndex& at) { Go_To(at.row()); });
  connect(table_, &QTableView::activated, this, [this](const QModelIndex& at) { Go_To(at.row()); });
}

void MeasuredDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Refresh();
  table_->resizeColumnsToContents();
}

void MeasuredDock::Refresh() {
  if (!isVisible()) return;
  model_.Refresh();
  Show_Count();
}

void MeasuredDock::Show_Count() {
  const QString text = QStringLiteral("%1 of %2 lines of %3")
                           .arg(model_.rowCount())
                           .arg(model_.Line_Count())
                           .arg(Qt_Text(panes_.Block().ObservationFileName));
  if (count_->text() != text) count_->setText(text);
}

/// Drags every pane so that it shows the point in its middle; the solution stays.
void MeasuredDock::Go_To(int row) {
  if (!model_.Line(row).readable) return;
  const Point3D at = model_.Line(row).at;
  Workspace& w = panes_.Block();
  for (int k = 0; k < w.ImageCount && k < kAidedPanes; ++k) {
    if (!Shows_Image(w, k)) continue;
    const PanePosition now = Pane_Of_Point(w, k, at);
    const QPointF distance(w.PaneWidth / 2.0 - now.px, w.PaneHeight / 2.0 - now.py);
    panes_.Owner().Dispatch(AidedPanes::Event_On(OperatorEvent::Kind::Pan, k, distance));
  }
}

}  // namespace sylvomex
