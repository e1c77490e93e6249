// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <string_view>

namespace sylvomex {

/// The entries of a filter "HDR files (*.hdr)|*.hdr|Rasters|*.raw;*.img" in the form that a Qt file
/// dialog expects: "HDR files (*.hdr)", "Rasters (*.raw *.img)". "All files (*)" when it is empty.
QStringList Name_Filters(std::string_view filter);

}  // namespace sylvomex
