// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace sylvomex {

/// What a subcommand has answered, a line for each value: "columns: 200". Of lists of objects each
/// is a line.
QStringList Result_Lines(const QJsonObject& result);

/// The headers of imported photographs, as drive names.
QStringList Imported_Headers(const QJsonObject& result);

}  // namespace sylvomex
