// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace platform::desktop {

inline const QString gnome = QStringLiteral("GNOME");
inline const QString xfce = QStringLiteral("XFCE");

/// Whether $XDG_CURRENT_DESKTOP names that desktop, itself or as what this session is based on ("ubuntu:GNOME").
/// `desktop` is in capitals; cases are not told apart, as in Qt.
inline bool isSessionOf(const QString& desktop) {
  return qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(u':').contains(desktop);
}

}  // namespace platform::desktop
