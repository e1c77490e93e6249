// SPDX-License-Identifier: MIT
// Between the texts of the block and those of Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace sylvomex {

/// Texts of the block are UTF-8; one that is not (old field files) is read as Latin-1.
QString Qt_Text(std::string_view text);

std::string Block_Text(const QString& text);

/// A caption in which '&' is a character and no mark of a key.
QString Caption_Text(std::string_view caption);

}  // namespace sylvomex
