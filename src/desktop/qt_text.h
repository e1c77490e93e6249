// SPDX-License-Identifier: MIT
// Conversion between the texts of the block and Qt's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace sylvomex {

/// Texts of the block are UTF-8; invalid UTF-8 (old field files) is read as Latin-1.
QString Qt_Text(std::string_view text);

std::string Block_Text(const QString& text);

/// A caption in which '&' is an ordinary character, not an accelerator mark.
QString Caption_Text(std::string_view caption);

}  // namespace sylvomex
