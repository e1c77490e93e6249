// SPDX-License-Identifier: MIT
#include "desktop_aids/measured_model.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <limits>

#include "desktop/qt_text.h"
#include "platform/run_time_error.h"
#include "services/measured_quality.h"
#include "session/file_part.h"

namespace sylvomex {
namespace {

constexpr std::array kHeads{"No",    "X, m",  "Y, m",  "Z, m", "Terrain, m", "RMSE, um",
                            "sX, m", "sY, m", "sZ, m", "Rays", "Species",    "Comment"};

std::string Small_Letters(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// The rest of a file; nothing when it cannot be read.
std::string Bytes_From(const std::filesystem::path& file, std::uintmax_t start) {
  try {
    return Part_Of_File(file, start, std::numeric_limits<std::uint64_t>::max());
  } catch (const RunTimeError&) {
    return {};
  }
}

double Sort_Value(const MeasuredLine& line, int column) {
  switch (column) {
    case MeasuredModel::X:
      return line.at.X;
    case MeasuredModel::Y:
      return line.at.Y;
    case MeasuredModel::Z:
      return line.at.Z;
    case MeasuredModel::Terrain:
      return line.dem_z;
    case MeasuredModel::Rmse:
      return line.rmse_um;
    case MeasuredModel::Rays:
      return static_cast<double>(line.rays.size());
    case MeasuredModel::Species:
      return line.species;
    default:
      return line.number;
  }
}

bool Is_Dark() {
  constexpr int kDark = 128;
  return QGuiApplication::palette().color(QPalette::Base).lightness() < kDark;
}

/// Of a line's ground, on which the letters of the window's look are readable.
QColor Trust_Colour(Trust trust) {
  const bool dark = Is_Dark();
  switch (trust) {
    case Trust::Good:
      return dark ? QColor(32, 84, 58) : QColor(205, 235, 215);
    case Trust::Doubtful:
      return dark ? QColor(104, 82, 12) : QColor(255, 236, 179);
    case Trust::Bad:
      return dark ? QColor(120, 42, 34) : QColor(250, 205, 195);
  }
  return {};
}

}  // namespace

Trust Trust_In(const MeasuredLine& line, const Options& options) {
  if (!line.readable || line.rmse_um > options.RmseBeepTwoLevel) return Trust::Bad;
  return line.rmse_um > options.RmseBeepOneLevel ? Trust::Doubtful : Trust::Good;
}

void MeasuredModel::Refresh() {
  std::error_code failed;
  const std::filesystem::path file = w_.Drives.Locate(w_.ObservationFileName).native;
  std::uintmax_t size = std::filesystem::file_size(file, failed);
  if (failed) size = 0;
  auto date = std::filesystem::last_write_time(file, failed);
  if (failed) date = {};
  if (file_name_ == w_.ObservationFileName && size == size_ && date == date_) return;
  beginResetModel();
  const bool has_grown = file_name_ == w_.ObservationFileName && size > size_ && size_ > 0;
  if (!has_grown) lines_.clear();
  std::vector<MeasuredLine> more;
  const std::string text = Bytes_From(file, has_grown ? size_ : 0);
  if (text.empty()) {
    size = 0;  // one that could not be read is read anew
    lines_.clear();
  } else {
    more = Measured_Lines_Of(text);
  }
  std::ranges::move(more, std::back_inserter(lines_));
  file_name_ = w_.ObservationFileName;
  size_ = size;
  date_ = date;
  ++version_;
  Choose_Rows();
  endResetModel();
}

void MeasuredModel::Filter(const std::string& text) {
  beginResetModel();
  filter_ = Small_Letters(text);
  Choose_Rows();
  endResetModel();
}

void MeasuredModel::Choose_Rows() {
  rows_.clear();
  for (std::size_t at = 0; at < lines_.size(); ++at) {
    if (filter_.empty() || Small_Letters(lines_[at].text).find(filter_) != std::string::npos) {
      rows_.push_back(at);
    }
  }
  if (sorted_by_ < 0) return;
  const auto less = [this](std::size_t a, std::size_t b) {
    if (sorted_by_ == Comment) return lines_[a].comment < lines_[b].comment;
    return Sort_Value(lines_[a], sorted_by_) < Sort_Value(lines_[b], sorted_by_);
  };
  if (order_ == Qt::AscendingOrder) {
    std::ranges::stable_sort(rows_, less);
  } else {
    std::ranges::stable_sort(rows_, [&](std::size_t a, std::size_t b) { return less(b, a); });
  }
}

void MeasuredModel::sort(int column, Qt::SortOrder order) {
  beginResetModel();
  sorted_by_ = column;
  order_ = order;
  Choose_Rows();
  endResetModel();
}

const MeasuredLine& MeasuredModel::Line(int row) const {
  return lines_.at(rows_.at(static_cast<std::size_t>(row)));
}

int MeasuredModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MeasuredModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString MeasuredModel::Text(const MeasuredLine& line, int column) const {
  const auto real = [](double value, int digits) { return QString::number(value, 'f', digits); };
  switch (column) {
    case Number:
      return QString::number(line.number);
    case X:
      return real(line.at.X, 2);
    case Y:
      return real(line.at.Y, 2);
    case Z:
      return real(line.at.Z, 2);
    case Terrain:
      return real(line.dem_z, 2);
    case Rmse:
      return real(line.rmse_um, 2);
    case Rays:
      return QString::number(line.rays.size());
    case Species:
      return QString::number(line.species);
    case Comment:
      return Qt_Text(line.comment);
    default:
      break;
  }
  const auto quality = Quality_Of(w_, line);
  if (!quality) return QStringLiteral("-");
  return real(column == SigmaX   ? quality->std_x
              : column == SigmaY ? quality->std_y
                                 : quality->std_z,
              3);
}

QVariant MeasuredModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const MeasuredLine& line = Line(index.row());
  if (role == Qt::DisplayRole) {
    if (!line.readable) return index.column() == Comment ? Qt_Text(line.text) : QString();
    return Text(line, index.column());
  }
  if (role == Qt::BackgroundRole) return Trust_Colour(Trust_In(line, w_.options));
  if (role == Qt::ToolTipRole) return Qt_Text(line.text);
  if (role == Qt::TextAlignmentRole && index.column() != Comment) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

QVariant MeasuredModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  return QString::fromLatin1(kHeads.at(static_cast<std::size_t>(section)));
}

}  // namespace sylvomex
