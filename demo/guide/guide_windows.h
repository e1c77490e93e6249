// SPDX-License-Identifier: MIT
// The main window with what stands beside its described controls, as the guide shows it.
#pragma once

#include <QImage>
#include <filesystem>

namespace sylvomex::demo {

/// Tree tops over the photographs, the magnifier and the dock Measured. site: the demo site, after
/// its session "measure".
QImage Aids_Picture(const std::filesystem::path& site);

/// Echoes and a height scale in the dock Overlays, with thinned labels, and the menu Aids.
QImage Overlays_Picture(const std::filesystem::path& site);

}  // namespace sylvomex::demo
