// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// Gives the program's own windows their roles and names for assistive technology: for Qt they are plain widgets.
/// Costs nothing until an assistive technology asks.
void describeWindowsToAssistiveTechnology();

}  // namespace platform::desktop
