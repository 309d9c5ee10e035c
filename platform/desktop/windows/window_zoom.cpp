// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/window_zoom.h"

#include <QScreen>
#include <cstdlib>

#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

/// With a fractional scale each edge may be one point off.
bool isAbout(const QRect& a, const QRect& b) {
  constexpr int rounding = 2;
  return std::abs(a.left() - b.left()) <= rounding && std::abs(a.top() - b.top()) <= rounding &&
         std::abs(a.right() - b.right()) <= rounding && std::abs(a.bottom() - b.bottom()) <= rounding;
}

}  // namespace

void WindowZoom::toggle() {
  if (window_.isMaximized()) {
    // Some window managers maximise a window that is as large as the screen.
    window_.showNormal();
    if (large_) undo();
  } else if (isOn()) {
    undo();
  } else {
    large_ = {window_.geometry(), {}};
    fill();
  }
}

/// Back to the geometry before, on the screens that there are now.
void WindowZoom::undo() { window_.setGeometry(toQt(frameWholeOnScreens(fromQt(large_->before), screens()))); }

void WindowZoom::fill() {
  large_->room = window_.screen()->availableGeometry();
  window_.setGeometry(large_->room);
}

bool WindowZoom::isOn() const {
  if (!large_) return false;
  const QRect now = window_.geometry();
  // A window manager may have made room for a new panel itself.
  return window_.isMaximized() || isAbout(now, large_->room) || isAbout(now, window_.screen()->availableGeometry());
}

QRect WindowZoom::geometryWithout() const { return isOn() ? large_->before : window_.geometry(); }

}  // namespace platform::desktop
