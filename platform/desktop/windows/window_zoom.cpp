// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/window_zoom.h"

#include <QScreen>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

// Of a window manager that keeps the window off a panel that `roomOf` does not know.
constexpr std::chrono::seconds longestAnswer{1};
constexpr double leastShare = 0.8;  // of the room, that it leaves

int areaOf(const QRect& rect) { return rect.width() * rect.height(); }

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
  } else if (!windowSystem_.canPosition()) {
    window_.showMaximized();
  } else {
    large_ = {window_.geometry(), {}};
    fill();
  }
}

/// Back to the geometry before, on the screens that there are now.
void WindowZoom::undo() {
  const QRect before = std::exchange(large_, std::nullopt)->before;
  window_.setGeometry(wholeOnScreens(before));
}

void WindowZoom::fill() {
  large_->now = roomOf(*window_.screen());
  answer_.setRemainingTime(longestAnswer);
  window_.setGeometry(large_->now);
}

void WindowZoom::geometryChanged() {
  if (!large_ || answer_.hasExpired()) return;
  const QRect onScreen = window_.geometry() & window_.screen()->geometry();
  if (areaOf(onScreen) < leastShare * areaOf(roomOf(*window_.screen()))) return;
  large_->now = onScreen;
  // xfwm4 moves the window clear of a panel and leaves its size as it is.
  if (!isAbout(window_.geometry(), onScreen)) window_.setGeometry(onScreen);
}

bool WindowZoom::isOn() const {
  if (!large_) return false;
  const QRect now = window_.geometry();
  // A window manager may have made room for a new panel itself.
  return window_.isMaximized() || isAbout(now, large_->now) || isAbout(now, roomOf(*window_.screen()));
}

QRect WindowZoom::geometryWithout() const { return isOn() ? large_->before : window_.geometry(); }

}  // namespace platform::desktop
