// SPDX-License-Identifier: MIT
#pragma once

#include "platform/view.h"

namespace platform::desktop {

/// Gives the views of a tree that is placed by constraints the widgets and the layouts that they stand for. Once for
/// each tree, before it is shown.
void realize(NSView& root);

}  // namespace platform::desktop
