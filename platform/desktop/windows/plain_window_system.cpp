// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/plain_window_system.h"

#include <QGuiApplication>

namespace platform::desktop {

void PlainWindowSystem::activate(QWidget& window) {
  window.raise();
  window.activateWindow();
}

void PlainWindowSystem::setActivationToken(const QString& token) {
  // Qt sends the token with the next activation.
  constexpr auto variable = "XDG_ACTIVATION_TOKEN";
  token.isEmpty() ? qunsetenv(variable) : qputenv(variable, token.toUtf8());
}

bool PlainWindowSystem::canPosition() const {
  return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

}  // namespace platform::desktop
