// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

namespace platform::desktop {

/// The caret blinks as the desktop has it, and stands still, shown, some seconds after the user's last act: a note
/// that is left alone wakes nothing up.
class CaretRest {
 public:
  explicit CaretRest(QObject& editor);
  CaretRest(const CaretRest&) = delete;
  CaretRest& operator=(const CaretRest&) = delete;
  ~CaretRest() { end(); }

  /// The editor has got the focus, or the user has done something in it.
  void blink();
  /// The editor has lost the focus, and with it the caret.
  void end();

 private:
  QTimer untilRest_;
  bool rests_ = false;
};

}  // namespace platform::desktop
