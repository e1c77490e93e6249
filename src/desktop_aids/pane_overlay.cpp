// SPDX-License-Identifier: MIT
#include "desktop_aids/pane_overlay.h"

#include <QPainter>
#include <QPixmapCache>
#include <vector>

#include "desktop/qt_text.h"
#include "desktop/readable_text.h"
#include "panes/shown_raster.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kTopRadius = 7;
constexpr int kSavedSide = 9;              // pixels
constexpr std::size_t kMostNumbers = 300;  // of saved points in a pane

QColor Top_Colour(const OverlayChoices& choices) {
  return choices.safe_colours ? QColor(230, 159, 0) : QColor(255, 70, 200);
}

QColor Saved_Colour(Trust trust, const OverlayChoices& choices) {
  switch (trust) {
    case Trust::Good:
      return choices.safe_colours ? QColor(0, 158, 115) : QColor(60, 230, 120);
    case Trust::Doubtful:
      return choices.safe_colours ? QColor(240, 228, 66) : QColor(255, 210, 0);
    case Trust::Bad:
      return choices.safe_colours ? QColor(213, 94, 0) : QColor(255, 90, 70);
  }
  return {};
}

QColor Frame_Colour(const PaneNote& note, const OverlayChoices& choices) {
  if (note.clicked_last) return choices.safe_colours ? QColor(240, 228, 66) : QColor(255, 210, 0);
  if (note.ticked) return choices.safe_colours ? QColor(86, 180, 233) : QColor(0, 170, 120);
  return {110, 110, 110};
}

QString Observation_Text(const PaneNote& note, int decimals) {
  if (!note.observation) return {};
  const QString text = QStringLiteral("   at %1 %2")
                           .arg(note.observation->pixel.col, 0, 'f', decimals)
                           .arg(note.observation->pixel.row, 0, 'f', decimals);
  return note.ticked ? text : text + QStringLiteral(" (not used)");
}

/// A text on a dark ground, ending before `right`; returns its rectangle.
QRect Paint_Line(QPainter& painter, const QPoint& bottom_left, int right,
                 const QStringList& wordings, const QColor& colour) {
  const QFontMetrics metrics = painter.fontMetrics();
  const int room = right - bottom_left.x() - 8;
  const QString shown = First_That_Fits(wordings, metrics, room);
  const QRect ground(bottom_left.x(), bottom_left.y() - metrics.height() - 2,
                     metrics.horizontalAdvance(shown) + 8, metrics.height() + 2);
  painter.fillRect(ground, QColor(0, 0, 0, 160));
  painter.setPen(colour);
  painter.drawText(ground, Qt::AlignCenter, shown);
  return ground;
}

/// A picture that is painted once and kept under its name, since tops are many and panes are
/// dragged often.
template <class Paint>
QPixmap Kept_Picture(const QString& name, const QSize& size, double pixel_ratio, Paint&& paint) {
  const QString key = QStringLiteral("sylvomex %1 %2").arg(name).arg(pixel_ratio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = QPixmap(size * pixel_ratio);
  picture.setDevicePixelRatio(pixel_ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  paint(painter);
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

/// A ring with a dark edge.
QPixmap Ring_Picture(const QColor& colour, double pixel_ratio) {
  constexpr int kSide = 2 * kTopRadius + 4;
  return Kept_Picture(colour.name(), {kSide, kSide}, pixel_ratio, [&](QPainter& painter) {
    const QPointF middle(kSide / 2.0, kSide / 2.0);
    painter.setPen(QPen(QColor(0, 0, 0, 180), 3));
    painter.drawEllipse(middle, kTopRadius, kTopRadius);
    painter.setPen(QPen(colour, 1.5));
    painter.drawEllipse(middle, kTopRadius, kTopRadius);
  });
}

/// A hollow square with a dark edge.
QPixmap Square_Picture(const QColor& colour, double pixel_ratio) {
  constexpr int kWhole = kSavedSide + 2;
  const QString name = QStringLiteral("square ") + colour.name();
  return Kept_Picture(name, {kWhole, kWhole}, pixel_ratio, [&](QPainter& painter) {
    const QRect square(1, 1, kSavedSide, kSavedSide);
    painter.fillRect(square.adjusted(-1, -1, 1, 1), QColor(0, 0, 0, 180));
    painter.fillRect(square, colour);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(square.adjusted(1, 1, -1, -1), QColor(0, 0, 0, 180));
    painter.fillRect(square.adjusted(2, 2, -2, -2), Qt::transparent);
  });
}

/// White text with a dark edge, readable on any ground.
QPixmap Label_Picture(const QString& text, const QFont& font, double pixel_ratio) {
  const QFontMetrics metrics(font);
  const QSize size(metrics.horizontalAdvance(text) + 2, metrics.height() + 2);
  return Kept_Picture(text, size, pixel_ratio, [&](QPainter& painter) {
    painter.setFont(font);
    const QPointF at(1, 1 + metrics.ascent());
    painter.setPen(QColor(0, 0, 0, 200));
    for (const QPointF& away : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
      painter.drawText(at + away, text);
    }
    painter.setPen(Qt::white);
    painter.drawText(at, text);
  });
}

bool Meets_One(const QRectF& label, const std::vector<QRectF>& taken) {
  return std::ranges::any_of(taken, [&](const QRectF& other) { return other.intersects(label); });
}

}  // namespace

/// What narrow panes leave out, the ring and the colour of the frame tell.
QStringList Note_Wordings(const PaneNote& note) {
  const QString id = QString::number(note.image_id);
  const QString zoom = QStringLiteral("   ") + Qt_Text(note.zoom);
  const QString last = note.clicked_last ? QStringLiteral("   last click") : QString();
  const QString mode = note.mode.empty() ? QString() : QStringLiteral("   ") + Qt_Text(note.mode);
  return {id + zoom + Observation_Text(note, 1) + last + mode,
          id + zoom + Observation_Text(note, 1) + mode,
          id + zoom + Observation_Text(note, 0) + mode, id + zoom + mode, id + mode};
}

PaneOverlay::PaneOverlay(const AidedPanes& panes, int pane, const OverlayChoices& choices,
                         const MeasuredModel& saved)
    : QWidget(&panes.Widget(pane)), panes_(panes), pane_(pane), choices_(choices), saved_(saved) {
  setObjectName(QStringLiteral("PaneOverlay%1").arg(pane));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
}

PaneOverlay::Shown PaneOverlay::Now() const {
  const Picture& picture = panes_.Block().Form1.Picture1(pane_);
  const MatchingState& m = panes_.Block().Matching;
  const std::string note = Block_Text(Note_Wordings(note_).first()) + (note_.ticked ? "+" : "-") +
                           (note_.lacks_solution ? "!" : "");
  return {choices_,
          note,
          picture.bitmap_version,
          picture.erase_version,
          picture.marks.size(),
          choices_.tops ? std::string(m.ClusterRunName.Trimmed()) : std::string(),
          m.ClusterCount,
          saved_.Version(),
          size()};
}

void PaneOverlay::Refresh() {
  const bool shows = Shows_Image(panes_.Block(), pane_);
  if (isHidden() == shows) setVisible(shows);
  if (!shows) return;
  // A pane's lower border may lie beyond the client area; the frame stays in sight.
  const QWidget& pane = panes_.Widget(pane_);
  const QRect in_sight = pane.rect() & pane.parentWidget()->rect().translated(-pane.pos());
  if (geometry() != in_sight) setGeometry(in_sight);
  panes_.Widget(pane_).Thin_Labels(choices_.thin_labels);
  note_ = Note_Of_Pane(panes_.Block(), pane_);
  Shown now = Now();
  if (now == shown_) return;
  shown_ = std::move(now);
  update();
}

void PaneOverlay::paintEvent(QPaintEvent*) {
  if (!Shows_Image(panes_.Block(), pane_)) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (choices_.large_marks) Paint_Large_Marks(painter);
  if (choices_.saved_points) Paint_Saved_Points(painter);
  if (choices_.tops) Paint_Tops(painter);
  if (!choices_.frames) return;
  Paint_Observation(painter);
  Paint_Frame(painter);
}

void PaneOverlay::Paint_Frame(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  const QColor colour = Frame_Colour(note_, choices_);
  painter.setPen(QPen(colour, kPictureBorder));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
  const QPoint corner(kPictureBorder, height() - kPictureBorder);
  const QRect line = Paint_Line(painter, corner, width(), Note_Wordings(note_), Qt::white);
  if (note_.lacks_solution) {
    Paint_Line(painter, line.topLeft(), width(),
               {QStringLiteral("the solution lies outside this photograph"),
                QStringLiteral("the solution lies outside"), QStringLiteral("outside")},
               QColor(255, 180, 60));
  }
}

void PaneOverlay::Paint_Observation(QPainter& painter) const {
  if (!note_.observation) return;
  const QPointF at(note_.observation->at.px + kPictureBorder,
                   note_.observation->at.py + kPictureBorder);
  constexpr double kRadius = 9;
  for (const auto& [colour, width] :
       {std::pair(QColor(0, 0, 0, 180), 3.0), {Frame_Colour(note_, choices_), 1.4}}) {
    painter.setPen(QPen(colour, width));
    painter.drawEllipse(at, kRadius, kRadius);
  }
}

/// Right of a top, left of it where the pane ends.
QRectF PaneOverlay::Label_Beside(const QPointF& at, const QFontMetrics& metrics,
                                 const QString& text) const {
  const int label_width = metrics.horizontalAdvance(text);
  const double right = at.x() + kTopRadius + 2;
  const double left = right + label_width < width() ? right : at.x() - kTopRadius - 2 - label_width;
  return {left, at.y() - metrics.ascent(), double(label_width), double(metrics.height())};
}

void PaneOverlay::Paint_Tops(QPainter& painter) const {
  const double ratio = devicePixelRatioF();
  const QPixmap ring = Ring_Picture(Top_Colour(choices_), ratio);
  const QPointF to_corner(ring.width() / ratio / 2, ring.height() / ratio / 2);
  std::vector<QRectF> taken;
  for (const ShownTop& top : Shown_Tops(panes_.Block(), pane_)) {
    const QPointF at(top.at.px + kPictureBorder, top.at.py + kPictureBorder);
    painter.drawPixmap(at - to_corner, ring);
    const QString text = QStringLiteral("%1  %2").arg(top.number).arg(top.score, 0, 'f', 2);
    const QRectF label = Label_Beside(at, painter.fontMetrics(), text);
    if (Meets_One(label, taken)) continue;  // the lighter of two tops goes without a label
    taken.push_back(label);
    painter.drawPixmap(label.topLeft(), Label_Picture(text, painter.font(), ratio));
  }
}

void PaneOverlay::Paint_Saved_Points(QPainter& painter) const {
  const Workspace& w = panes_.Block();
  const double ratio = devicePixelRatioF();
  std::vector<QRectF> taken;
  for (const MeasuredLine& line : saved_.Lines()) {
    const auto place = line.readable ? Shown_Place(w, pane_, line.at) : std::nullopt;
    if (!place) continue;
    const QPointF at(place->px + kPictureBorder, place->py + kPictureBorder);
    const QPixmap square = Square_Picture(Saved_Colour(Trust_In(line, w.options), choices_), ratio);
    painter.drawPixmap(at - QPointF(square.width(), square.height()) / ratio / 2, square);
    if (taken.size() == kMostNumbers) continue;
    const QString text = QString::number(line.number);
    const QRectF label = Label_Beside(at, painter.fontMetrics(), text);
    if (Meets_One(label, taken)) continue;
    taken.push_back(label);
    painter.drawPixmap(label.topLeft(), Label_Picture(text, painter.font(), ratio));
  }
}

void PaneOverlay::Paint_Large_Marks(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  const Picture& picture = panes_.Block().Form1.Picture1(pane_);
  for (const Mark& mark : picture.marks) {
    constexpr int kSmall = 3;
    if (mark.kind != Mark::Kind::Point || mark.width > kSmall) continue;
    const QPoint at = QPointF(mark.x1, mark.y1).toPoint() + QPoint(kPictureBorder, kPictureBorder);
    if (!rect().contains(at)) continue;
    painter.fillRect(QRect(at - QPoint(3, 3), QSize(7, 7)), QColor(0, 0, 0));
    painter.fillRect(QRect(at - QPoint(2, 2), QSize(5, 5)),
                     QColor(mark.colour.r, mark.colour.g, mark.colour.b));
  }
}

}  // namespace sylvomex
