// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// Tells assistive technology what the program's own windows are: Qt knows them for plain widgets. Nothing
/// is made before somebody asks.
void describeWindowsToAssistiveTechnology();

}  // namespace platform::desktop
