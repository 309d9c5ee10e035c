// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image.h"

class QPainter;

namespace platform::desktop {

/// Lets the image's handler draw, its upper left corner at the painter's origin.
void paintImage(const NSImage& image, QPainter& painter);

}  // namespace platform::desktop
