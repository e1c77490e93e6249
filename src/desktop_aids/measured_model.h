// SPDX-License-Identifier: MIT
// The lines of the observation file as rows of a table.
#pragma once

#include <QAbstractTableModel>
#include <filesystem>
#include <vector>

#include "overlays/measured_lines.h"
#include "state/workspace.h"

namespace sylvomex {

/// How far a measurement can be trusted, by the limits at which an intersection beeps.
enum class Trust { Good, Doubtful, Bad };

Trust Trust_In(const MeasuredLine& line, const Options& options);

class MeasuredModel : public QAbstractTableModel {
 public:
  enum Column { Number, X, Y, Z, Terrain, Rmse, SigmaX, SigmaY, SigmaZ, Rays, Species, Comment };
  static constexpr int kColumns = Comment + 1;

  /// The block must outlive the model.
  explicit MeasuredModel(const Workspace& w) : w_(w) {}

  /// Reads the file when its name, size or date has changed; of a file that has grown only what is
  /// new.
  void Refresh();

  /// Shows the lines that contain a text, in capital letters or not.
  void Filter(const std::string& text);

  [[nodiscard]] const MeasuredLine& Line(int row) const;
  [[nodiscard]] int Line_Count() const { return static_cast<int>(lines_.size()); }
  [[nodiscard]] const std::vector<MeasuredLine>& Lines() const { return lines_; }

  /// Another number after each reading of the file that found other lines.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  [[nodiscard]] QString Text(const MeasuredLine& line, int column) const;
  void Choose_Rows();

  const Workspace& w_;
  std::string file_name_;
  std::uintmax_t size_ = 0;
  std::uint64_t version_ = 0;
  std::filesystem::file_time_type date_;
  std::vector<MeasuredLine> lines_;
  std::vector<std::size_t> rows_;  // indices of the lines shown, in order
  std::string filter_;             // small letters
  int sorted_by_ = -1;             // -1: in the order of the file
  Qt::SortOrder order_ = Qt::AscendingOrder;
};

}  // namespace sylvomex
