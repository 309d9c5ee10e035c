// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

namespace platform::desktop {

/// Leaves GNOME Shell's overview, in which no window gets the keyboard. Then, or after a second, calls `then`; on other
/// desktops at once; never if `context` is destroyed before that. The session bus is known to answer.
void leaveGnomeOverview(QObject& context, const std::function<void()>& then);

}  // namespace platform::desktop
