// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// A display on which Qt's own words have to do: Wayland, where a window's place is the compositor's, and screens that
/// nobody sees.
class PlainWindowSystem : public WindowSystem {
 public:
  void prepareToShow(QWidget& /*window*/, Placement /*placement*/) override {}
  void place(QWidget& /*window*/, Placement /*placement*/) override {}
  void activate(QWidget& window) override;
  void prepareToHide(QWidget& /*window*/) override {}
  bool isActive(const QWidget& window) override { return window.isActiveWindow(); }
  void activatePreviousProgram() override {}
  void setActivationToken(const QString& token) override;
  bool isSettled() const override { return true; }
  bool hasPlaces() const override;
  bool isComposited() const override { return true; }
};

}  // namespace platform::desktop
