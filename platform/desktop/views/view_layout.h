// SPDX-License-Identifier: MIT
#pragma once

#include "platform/view.h"

/// Stacks, grids and constraints as Qt's layouts.
namespace platform::desktop {

/// Puts the widgets of the view's subviews into a QLayout, and sets the sizes that constraints fix.
void layOut(const NSView& view);
/// Breaks the labels of a tree that has been laid out into lines no wider than `room`, in points.
void fit(const NSView& view, int room);

}  // namespace platform::desktop
