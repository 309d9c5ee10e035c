// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform::desktop {

/// Gives a command that is offered to other programs (see `OfferedCommands`) its keys among GNOME's own custom
/// shortcuts; once in a user's life, so that what the user does with it there stays. Tried again at the next start
/// where something else had the keys.
void addToGnomeShortcuts(const QString& action, const QString& title, const QString& binding);

}  // namespace platform::desktop
