// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>

namespace platform::desktop {

/// A place to take hold of the window. A click is no drag: the window manager would hold on to a window whose
/// button was released before it heard of the drag.
class DragHandle : public QWidget {
 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  /// The button, pressed at `from`, is down and the pointer has moved.
  virtual void startDrag(QWindow& window, QPoint from) = 0;

 private:
  std::optional<QPoint> pressedAt_;
};

}  // namespace platform::desktop
