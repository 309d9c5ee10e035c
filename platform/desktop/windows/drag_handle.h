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
  void mouseReleaseEvent(QMouseEvent* event) override;
  /// The edges that a drag from `point` moves; none if it moves the whole window.
  virtual Qt::Edges edgesAt(QPoint point) const = 0;

 private:
  struct Press {
    QPoint at;  ///< on the screen
    Qt::Edges edges;
    QRect window;           ///< its geometry
    bool followed = false;  ///< by us: the window manager cannot be asked to drag the window
  };
  void follow(QPoint way);

  std::optional<Press> press_;
};

}  // namespace platform::desktop
