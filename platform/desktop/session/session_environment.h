// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace platform::desktop {

inline const QString gnome = QStringLiteral("GNOME");
inline const QString xfce = QStringLiteral("XFCE");

/// Whether this is a session of the desktop with that registered name, or of one that is made of it.
/// In capitals, as Qt compares it too.
inline bool isSessionOf(const QString& desktop) {
  return qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(u':').contains(desktop);
}

}  // namespace platform::desktop
