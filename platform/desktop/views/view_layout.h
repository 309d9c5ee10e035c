// SPDX-License-Identifier: MIT
#pragma once

#include "platform/view.h"

/// How Qt's layouts stand for stacks, grids and constraints.
namespace platform::desktop {

/// Gives the view's widget a layout of its subviews' widgets, and the sizes that constraints fix.
void layOut(const NSView& view);
/// Gives the labels in a tree that has been laid out their sizes, in lines that are no wider than `room`, in points.
void fit(const NSView& view, int room);

}  // namespace platform::desktop
