// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/window_system.h"

#include <QGuiApplication>

#include "platform/desktop/windows/x11_window_system.h"
#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

constexpr auto activationToken = "XDG_ACTIVATION_TOKEN";  // which Qt shows with the next activation

/// A display on which Qt's own words have to do.
class PlainWindowSystem : public WindowSystem {
 public:
  void prepareToShow(QWidget& /*window*/, Placement /*placement*/) override {}
  void place(QWidget& /*window*/, Placement /*placement*/) override {}
  void activate(QWidget& window) override {
    window.raise();
    window.activateWindow();
  }
  void prepareToHide(QWidget& /*window*/) override {}
  bool isActive(const QWidget& window) override { return window.isActiveWindow(); }
  bool isSettled() const override { return true; }
  bool hasPlaces() const override { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }
  bool isComposited() override { return true; }
  void activatePreviousProgram() override {}
};

}  // namespace

std::unique_ptr<WindowSystem> WindowSystem::forThisDisplay() {
  if (x11::connection() != nullptr) return makeX11WindowSystem(x11::connection());
  return std::make_unique<PlainWindowSystem>();
}

void takeActivationToken(const QString& token) {
  if (x11::connection() != nullptr) return;
  if (token.isEmpty()) {
    qunsetenv(activationToken);
  } else {
    qputenv(activationToken, token.toUtf8());
  }
}

}  // namespace platform::desktop
