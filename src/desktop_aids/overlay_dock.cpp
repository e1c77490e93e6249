// SPDX-License-Identifier: MIT
#include "desktop_aids/overlay_dock.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop_aids/event_command.h"

namespace sylvomex {
namespace {

constexpr QSize kLegend(84, 14);
constexpr std::size_t kMostSquares = 6;
enum Column { kName, kColours, kMeaning, kFile };

QColor Qt_Colour(const Colour& colour) { return {colour.r, colour.g, colour.b}; }

}  // namespace

QImage Legend_Picture(const std::vector<Colour>& colours, const QSize& size) {
  std::vector<QColor> shown;
  shown.reserve(colours.size());
  for (const Colour& colour : colours) shown.push_back(Qt_Colour(colour));
  const bool is_band = shown.size() > kMostSquares;
  if (is_band) std::ranges::stable_sort(shown, std::ranges::greater(), &QColor::hue);
  QImage picture(size, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  const int count = static_cast<int>(shown.size());
  for (int k = 0; k < count; ++k) {
    const int left = is_band ? k * size.width() / count : k * size.height();
    const int right = is_band ? (k + 1) * size.width() / count : left + size.height() - 2;
    painter.fillRect(QRect(left, 0, right - left, size.height()), shown[std::size_t(k)]);
    painter.setPen(QColor(110, 110, 110));
    if (!is_band) painter.drawRect(left, 0, right - left - 1, size.height() - 1);
  }
  return picture;
}

OverlayDock::OverlayDock(const AidedPanes& panes)
    : QDockWidget(QStringLiteral("Overlays"), &panes.Owner().Shown().Main()), list_(panes) {
  setObjectName(QStringLiteral("OverlaysDock"));
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
  auto* inside = new QWidget(this);
  table_ = new QTreeWidget(inside);
  table_->setAccessibleName(QStringLiteral("Overlays that were drawn"));
  table_->setHeaderLabels({QStringLiteral("Overlay (ticked: kept)"), QStringLiteral("Colours"),
                           QStringLiteral("Shows"), QStringLiteral("File")});
  table_->setRootIsDecorated(false);
  table_->setIconSize(kLegend);
  table_->setUniformRowHeights(true);
  table_->header()->setStretchLastSection(true);
  buttons_ = new QWidget(inside);
  auto* row = new QHBoxLayout(buttons_);
  row->setContentsMargins(0, 0, 0, 0);
  Add_Button("DrawOverlay", QStringLiteral("&Draw again"), [this] {
    const int at = table_->indexOfTopLevelItem(table_->currentItem());
    if (at >= 0) list_.Draw_Again(static_cast<std::size_t>(at));
  });
  Add_Button("DrawOverlays", QStringLiteral("Draw &all again"), [this] { list_.Draw_All_Again(); });
  Add_Button("ForgetOverlay", QStringLiteral("&Forget"), [this] {
    const int at = table_->indexOfTopLevelItem(table_->currentItem());
    if (at >= 0) list_.Forget(static_cast<std::size_t>(at));
  });
  row->addStretch();
  auto* layout = new QVBoxLayout(inside);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(buttons_);
  layout->addWidget(table_);
  setWidget(inside);
  hide();
  connect(table_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    const int at = table_->indexOfTopLevelItem(item);
    if (column != kName || at < 0) return;
    list_.Keep(static_cast<std::size_t>(at), item->checkState(kName) == Qt::Checked);
  });
  connect(table_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
    list_.Draw_Again(static_cast<std::size_t>(table_->indexOfTopLevelItem(item)));
  });
  list_.When_Changed([this] { Fill(); });
  Fill();
}

QPushButton* OverlayDock::Add_Button(const char* name, const QString& text,
                                     std::function<void()> press) {
  auto* button = new QPushButton(text, buttons_);
  button->setObjectName(QString::fromLatin1(name));
  buttons_->layout()->addWidget(button);
  connect(button, &QPushButton::clicked, this, std::move(press));
  return button;
}

void OverlayDock::Fill() {
  const int chosen = table_->indexOfTopLevelItem(table_->currentItem());
  const QSignalBlocker silent(table_);
  table_->clear();
  for (const DrawnOverlay& overlay : list_.All()) {
    auto* line = new QTreeWidgetItem(table_);
    line->setText(kName, Qt_Text(Plain_Caption(overlay.command)));
    line->setCheckState(kName, overlay.keeps ? Qt::Checked : Qt::Unchecked);
    line->setIcon(kColours, QIcon(QPixmap::fromImage(Legend_Picture(overlay.colours, kLegend))));
    line->setText(kMeaning, Qt_Text(Overlay_Meaning(overlay.command)));
    line->setText(kFile, Qt_Text(File_Of(overlay)));
  }
  if (chosen >= 0 && chosen < table_->topLevelItemCount()) {
    table_->setCurrentItem(table_->topLevelItem(chosen));
  }
  for (const Column column : {kName, kColours, kMeaning}) table_->resizeColumnToContents(column);
}

}  // namespace sylvomex
