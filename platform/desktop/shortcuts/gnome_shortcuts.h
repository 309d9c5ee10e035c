// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform::desktop {

/// Adds a custom shortcut to GNOME's settings that calls an exported action (see `ExportedActions`). Done once and then
/// never again, so that the user's own changes stay; if the keys are taken, it is tried again at the next start.
void addToGnomeShortcuts(const QString& action, const QString& title, const QString& binding);

}  // namespace platform::desktop
