// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QStyleHints>
#include <QTimer>
#include <chrono>
#include <utility>

namespace platform::desktop {

/// Stops the caret's blinking, with the caret shown, some seconds after the user's last action: an idle note causes no
/// wake-ups. Otherwise it blinks as the desktop's settings say.
class CaretBlink {
 public:
  explicit CaretBlink(QObject& editor) : untilRest_(&editor) {
    untilRest_.setObjectName(QStringLiteral("caretBlink"));
    untilRest_.setSingleShot(true);
    untilRest_.setInterval(std::chrono::seconds(10));
    untilRest_.callOnTimeout([this] {
      rests_ = true;
      // Qt's editors know one setting for all of them; ours is the only one in the program.
      QGuiApplication::styleHints()->setCursorFlashTime(neverBlinks);
    });
  }
  CaretBlink(const CaretBlink&) = delete;
  CaretBlink& operator=(const CaretBlink&) = delete;
  ~CaretBlink() { end(); }

  /// The editor has got the focus, or the user has done something in it.
  void blink() {
    end();
    if (QGuiApplication::styleHints()->cursorFlashTime() != neverBlinks) untilRest_.start();
  }
  /// The editor has lost the focus, and with it the caret.
  void end() {
    untilRest_.stop();
    if (std::exchange(rests_, false)) QGuiApplication::styleHints()->setCursorFlashTime(asTheDesktopHasIt);
  }

 private:
  static constexpr int neverBlinks = 0;
  static constexpr int asTheDesktopHasIt = -1;  // takes back what was set before

  QTimer untilRest_;
  bool rests_ = false;
};

}  // namespace platform::desktop
