// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>

namespace platform::desktop {

/// A widget by which the user drags its window. The drag starts with the first movement, not with the press: a window
/// manager that is asked to move a window after the button was released keeps it stuck to the pointer.
class DragHandle : public QWidget {
 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  /// The pointer has moved with the button down, which was pressed at `from`.
  virtual void startDrag(QWindow& window, QPoint from) = 0;

 private:
  std::optional<QPoint> pressedAt_;
};

}  // namespace platform::desktop
