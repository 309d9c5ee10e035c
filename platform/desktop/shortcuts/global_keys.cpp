// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/global_keys.h"

#include <QString>

#include "platform/desktop/application/desktop.h"
#include "platform/desktop/shortcuts/portal_global_keys.h"
#include "platform/desktop/shortcuts/x11_global_keys.h"
#include "platform/desktop/x11/x11.h"
#include "platform/hot_key.h"

namespace platform {
namespace desktop {
namespace {

bool isWaylandSession() {
  const QString kind = qEnvironmentVariable("XDG_SESSION_TYPE");
  if (kind == QLatin1String("wayland")) return true;
  // An X11 session may have this one left over from another.
  return kind != QLatin1String("x11") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

}  // namespace

/// A Wayland session is the portal's even for a program that runs through XWayland: there the X server sees keys, and
/// so heeds a grab, only while one of its own windows has the keyboard. On other displays without an X server the
/// portal is the only one to ask. Plain X11 needs nobody: a grab is there at once, and names the physical key.
std::unique_ptr<GlobalKeys> GlobalKeys::forThisDisplay() {
  if (x11::connection() == nullptr || isWaylandSession()) return makePortalGlobalKeys();
  return makeX11GlobalKeys(x11::connection());
}

}  // namespace desktop

bool listenForHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  return desktop::globalKeys().listen(keyCode, modifiers,
                                      [pressed = std::move(pressed)] { desktop::requests().add(pressed); });
}

}  // namespace platform
