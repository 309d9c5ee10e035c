// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/windows/drag_handle.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// Lies over the whole window, masked to its edges: paints the hairline border, and resizes the window when dragged.
class WindowBorder : public DragHandle {
 public:
  explicit WindowBorder(const WindowSystem& windowSystem);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  Qt::Edges edgesAt(QPoint point) const override;

 private:
  const WindowSystem& windowSystem_;
};

}  // namespace platform::desktop
