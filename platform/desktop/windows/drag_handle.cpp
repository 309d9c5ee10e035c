// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/drag_handle.h"

#include <QMouseEvent>
#include <QWindow>
#include <algorithm>

namespace platform::desktop {
namespace {

constexpr int dragDistance = 3;  // points

}  // namespace

void DragHandle::mousePressEvent(QMouseEvent* event) {
  press_.reset();
  if (event->button() != Qt::LeftButton) return;
  press_ = {event->globalPosition().toPoint(), edgesAt(event->pos()), window()->geometry()};
}

void DragHandle::mouseReleaseEvent(QMouseEvent* /*event*/) { press_.reset(); }

void DragHandle::mouseMoveEvent(QMouseEvent* event) {
  if (!press_ || !(event->buttons() & Qt::LeftButton)) return;
  const QPoint way = event->globalPosition().toPoint() - press_->at;
  if (press_->followed) return follow(way);
  if (way.manhattanLength() < dragDistance) return;
  QWindow& dragged = *window()->windowHandle();
  // Qt has most X11 window managers do this for a mouse only, not for a finger.
  press_->followed = !(press_->edges ? dragged.startSystemResize(press_->edges) : dragged.startSystemMove());
  if (!press_->followed || window()->isMaximized()) press_.reset();
}

void DragHandle::follow(QPoint way) {
  const Qt::Edges edges = press_->edges;
  QRect place = press_->window;
  const QSize room = place.size() - window()->minimumSize();
  if (!edges) place.translate(way);
  if (edges & Qt::LeftEdge) place.setLeft(place.left() + std::min(way.x(), room.width()));
  if (edges & Qt::RightEdge) place.setRight(place.right() + std::max(way.x(), -room.width()));
  if (edges & Qt::TopEdge) place.setTop(place.top() + std::min(way.y(), room.height()));
  if (edges & Qt::BottomEdge) place.setBottom(place.bottom() + std::max(way.y(), -room.height()));
  window()->setGeometry(place);
}

}  // namespace platform::desktop
