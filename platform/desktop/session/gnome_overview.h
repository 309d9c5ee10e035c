// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

namespace platform::desktop {

/// Calls `then` when GNOME Shell has left its overview, in which no window gets the keyboard; at once elsewhere. Not if
/// `context` is gone by then. To be called in answer to a request from the session bus.
void leaveGnomeOverview(QObject& context, const std::function<void()>& then);

}  // namespace platform::desktop
