// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QWidget>
#include <optional>

namespace platform::desktop {

/// Makes a window as large as the screen's available geometry, and back. Sets the geometry itself, since not every
/// window manager maximises a utility window.
class WindowZoom {
 public:
  /// `window` outlives this.
  explicit WindowZoom(QWidget& window) : window_(window) {}

  void toggle();
  /// Whether the window is large by `toggle`, and has not been moved or resized since.
  bool isOn() const;
  /// Makes a large window follow a change of the available geometry.
  void fill();
  /// The window's geometry, or the one before it was made large.
  QRect geometryWithout() const;

 private:
  void undo();

  struct Large {
    QRect before;
    QRect room;  ///< the available geometry at that time
  };
  QWidget& window_;
  std::optional<Large> large_;
};

}  // namespace platform::desktop
