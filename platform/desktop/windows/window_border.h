// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/windows/drag_handle.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// The edges and corners of the window, over all that is in it: the hairline border, and where the window is resized.
class WindowBorder : public DragHandle {
 public:
  explicit WindowBorder(const WindowSystem& windowSystem);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void startDrag(QWindow& window, QPoint from) override;

 private:
  Qt::Edges edgesAt(QPoint point) const;

  const WindowSystem& windowSystem_;
};

}  // namespace platform::desktop
