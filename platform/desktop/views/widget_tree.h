// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "platform/view.h"

namespace platform::desktop {

/// Makes the widgets and layouts of a tree of views that is laid out by constraints. Once per tree, before it is shown.
void buildWidgets(NSView& root);

/// Replaces a key's name in the labels of such a tree.
void renameKeys(const NSView& root, const QString& before, const QString& now);

}  // namespace platform::desktop
