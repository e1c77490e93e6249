// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>
#include <QString>

namespace sylvomex::demo {

/// Writes a picture of the guide in few colours. part: of the picture, empty for all; width: to
/// which it is made smaller, 0 for as it is. False when it cannot be written.
bool Write_Guide_Picture(const QImage& picture, const QRect& part, int width, const QString& file);

}  // namespace sylvomex::demo
