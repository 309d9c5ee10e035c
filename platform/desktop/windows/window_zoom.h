// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QWidget>
#include <optional>

namespace platform::desktop {

/// A window made as large as the screen's free room, and again what it was. By its geometry: not every window manager
/// maximises a window of an accessory program.
class WindowZoom {
 public:
  /// The window has this as a part.
  explicit WindowZoom(QWidget& window) : window_(window) {}

  void toggle();
  /// Whether the window is as `toggle` made it large; one that was moved or resized since is not.
  bool isOn() const;
  /// Makes a window that is large as large as the free room is by now.
  void fill();
  /// The window's geometry, or what it was before it was made large.
  QRect geometryWithout() const;

 private:
  void undo();

  struct Large {
    QRect before;
    QRect room;  ///< that was free at that moment
  };
  QWidget& window_;
  std::optional<Large> large_;
};

}  // namespace platform::desktop
