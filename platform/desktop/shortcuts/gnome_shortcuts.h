// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace platform::desktop {

/// The desktop that they are of (see `isSessionOf`).
inline const QString gnome = QStringLiteral("GNOME");

/// Gives a command that is offered to other programs (see `offeredAction`) its keys among GNOME's own custom shortcuts;
/// once in a user's life, so that what the user does with it there stays. Tried again at the next start where something
/// else had the keys.
void addToGnomeShortcuts(const QString& action, const QString& title, const QString& binding);

/// Calls `then` when GNOME Shell has left its overview, in which no window gets the keyboard; at once elsewhere. Not if
/// `context` is gone by then. To be called in answer to a request from the session bus.
void leaveGnomeOverview(QObject& context, const std::function<void()>& then);

}  // namespace platform::desktop
