// SPDX-License-Identifier: MIT
#pragma once

#include <QFormLayout>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "site_program/command_table.h"

namespace sylvomex {

/// What a subcommand is asked for, as the rows of a dialog. The site itself is not asked for.
class SiteFields {
 public:
  /// start_folder: of the file dialogs. changed: called when a value has changed.
  SiteFields(const SiteCommand& command, QFormLayout& form, QString start_folder,
             std::function<void()> changed);

  /// Whether everything required has a value.
  [[nodiscard]] bool Are_Complete() const;

  /// The words of the command line behind the program's name.
  [[nodiscard]] QStringList Arguments(const QString& site) const;

  void Set_Enabled(bool enabled);

 private:
  /// A field on the screen: its values, none for one that is left empty.
  struct Row {
    const SiteField* field;
    QWidget* editor;
    std::function<QStringList()> values;
  };

  Row Make_Row(const SiteField& field);
  Row File_Row(const SiteField& field);
  Row Files_Row(const SiteField& field);
  Row Choice_Row(const SiteField& field);
  Row Text_Row(const SiteField& field);
  QStringList Ask_For_Files(const SiteField& field, QWidget& owner);

  const SiteCommand& command_;
  QString folder_;
  std::function<void()> changed_;
  std::vector<Row> rows_;
};

}  // namespace sylvomex
