// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// Displays where nothing beyond Qt's own API can be done: Wayland, and Qt's offscreen platform.
class PlainWindowSystem : public WindowSystem {
 public:
  void prepareToShow(QWidget& /*window*/, WindowState /*state*/) override {}
  void applyState(QWidget& /*window*/, WindowState /*state*/) override {}
  void activate(QWidget& window) override;
  void prepareToHide(QWidget& /*window*/, NextActive /*next*/) override {}  // the compositor chooses
  bool isActive(const QWidget& window) override { return window.isActiveWindow(); }
  void setActivationToken(const QString& token) override;
  bool isSettled() const override { return true; }
  bool canPosition() const override;
  bool isComposited() const override { return true; }
};

}  // namespace platform::desktop
