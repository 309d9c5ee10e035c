// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QRect>
#include <QWidget>
#include <optional>

#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// Makes a window as large as the room on its screen, and back. Sets the geometry itself where it can, since not every
/// window manager maximises a utility window.
class WindowZoom {
 public:
  /// Both outlive this.
  WindowZoom(QWidget& window, const WindowSystem& windowSystem) : window_(window), windowSystem_(windowSystem) {}

  void toggle();
  /// Whether the window is large by `toggle`, and has not been moved or resized since.
  bool isOn() const;
  /// Makes a large window follow a change of the room.
  void fill();
  /// To be called after each change of the window's geometry.
  void geometryChanged();
  /// The window's geometry, or the one before it was made large.
  QRect geometryWithout() const;

 private:
  void undo();

  struct Large {
    QRect before;
    QRect now;  ///< the room at that time, as the window manager has corrected it
  };
  QWidget& window_;
  const WindowSystem& windowSystem_;
  std::optional<Large> large_;
  QDeadlineTimer answer_;  ///< until then a change that leaves it large is the window manager's
};

}  // namespace platform::desktop
