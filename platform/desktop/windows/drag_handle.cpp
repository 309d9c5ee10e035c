// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/drag_handle.h"

#include <QMouseEvent>

namespace platform::desktop {
namespace {

constexpr int dragDistance = 3;  // points

}  // namespace

void DragHandle::mousePressEvent(QMouseEvent* event) {
  pressedAt_.reset();
  if (event->button() == Qt::LeftButton) pressedAt_ = event->pos();
}

void DragHandle::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedAt_ || !(event->buttons() & Qt::LeftButton)) return;
  if ((event->pos() - *pressedAt_).manhattanLength() < dragDistance) return;
  const QPoint from = *pressedAt_;
  pressedAt_.reset();
  startDrag(*window()->windowHandle(), from);
}

}  // namespace platform::desktop
