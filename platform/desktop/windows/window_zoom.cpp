// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/window_zoom.h"

#include <QScreen>
#include <cstdlib>

#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

/// With a fractional scale each edge may be a point away from where it was put.
bool isAbout(const QRect& a, const QRect& b) {
  constexpr int rounding = 2;
  return std::abs(a.left() - b.left()) <= rounding && std::abs(a.top() - b.top()) <= rounding &&
         std::abs(a.right() - b.right()) <= rounding && std::abs(a.bottom() - b.bottom()) <= rounding;
}

}  // namespace

void WindowZoom::toggle() {
  if (window_.isMaximized()) {
    // Some window managers maximise a window that they find as large as the screen.
    window_.showNormal();
    if (large_) undo();
  } else if (isOn()) {
    undo();
  } else {
    large_ = {window_.geometry(), {}};
    fill();
  }
}

/// Screens may have shrunk or gone since.
void WindowZoom::undo() { window_.setGeometry(toQt(frameWholeOnScreens(fromQt(large_->before), screens()))); }

void WindowZoom::fill() {
  large_->room = window_.screen()->availableGeometry();
  window_.setGeometry(large_->room);
}

bool WindowZoom::isOn() const {
  if (!large_) return false;
  const QRect now = window_.geometry();
  // Window managers too make room for a panel that comes.
  return window_.isMaximized() || isAbout(now, large_->room) || isAbout(now, window_.screen()->availableGeometry());
}

QRect WindowZoom::geometryWithout() const { return isOn() ? large_->before : window_.geometry(); }

}  // namespace platform::desktop
