// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/shortcuts/global_keys.h"

namespace platform::desktop {

/// Shortcuts that the desktop's portal gives, once the first frame has been drawn and there is a portal, now or later.
/// It is told of each as the menu's command with the same key, and the user may choose another one for it.
std::unique_ptr<GlobalKeys> makePortalGlobalKeys();

}  // namespace platform::desktop
