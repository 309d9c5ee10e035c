// SPDX-License-Identifier: MIT
#include "platform/desktop/application/this_display.h"

#include "platform/desktop/shortcuts/portal_global_shortcuts.h"
#include "platform/desktop/shortcuts/x11_global_shortcuts.h"
#include "platform/desktop/windows/plain_window_system.h"
#include "platform/desktop/windows/x11_window_system.h"
#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

bool isWaylandSession() {
  const QString kind = qEnvironmentVariable("XDG_SESSION_TYPE");
  if (kind == QLatin1String("wayland")) return true;
  // In an X11 session this variable may be left over from a Wayland session.
  return kind != QLatin1String("x11") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

}  // namespace

std::unique_ptr<WindowSystem> makeWindowSystem() {
  if (auto* const connection = x11::connection())
    return std::make_unique<X11WindowSystem>(connection, isWaylandSession());
  return std::make_unique<PlainWindowSystem>();
}

/// In a Wayland session the portal is used, also under XWayland: its X server sees keys, and so honours a grab, only
/// while an X11 window has the keyboard. On plain X11 a grab works at once, needs no service, and names a physical key.
std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame,
                                                     ProgramWindows& windows, const ExportedActions& actions) {
  auto* const connection = x11::connection();
  if (connection != nullptr && !isWaylandSession()) return std::make_unique<X11GlobalShortcuts>(requests, connection);
  return std::make_unique<PortalGlobalShortcuts>(requests, sessionBus, firstFrame, windows, actions);
}

}  // namespace platform::desktop
