// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "platform/view.h"

namespace platform::desktop {

/// Gives the views of a tree that is placed by constraints the widgets and the layouts that they stand for. Once for
/// each tree, before it is shown.
void realize(NSView& root);

/// Calls keys by another name in such a tree.
void renameKeys(const NSView& root, const QString& before, const QString& now);

}  // namespace platform::desktop
