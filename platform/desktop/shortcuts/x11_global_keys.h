// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/shortcuts/global_keys.h"

struct xcb_connection_t;

namespace platform::desktop {

/// Passive grabs on the root window, renewed when the keyboard's modifiers change.
std::unique_ptr<GlobalKeys> makeX11GlobalKeys(xcb_connection_t* connection);

}  // namespace platform::desktop
