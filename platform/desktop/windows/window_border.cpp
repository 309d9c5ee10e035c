// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/window_border.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "platform/desktop/views/appearance.h"

namespace platform::desktop {
namespace {

// In points.
constexpr int thickness = 5;
constexpr int cornerLength = 12;  // along each of the two edges
constexpr double cornerRadius = 10;

Qt::CursorShape cursorFor(Qt::Edges edges) {
  if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge)) return Qt::SizeFDiagCursor;
  if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge)) return Qt::SizeBDiagCursor;
  return (edges & (Qt::LeftEdge | Qt::RightEdge)) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

/// The edges of a window that are no farther away than `reach`.
Qt::Edges edgesWithin(int reach, QPoint point, QSize window) {
  Qt::Edges edges;
  edges.setFlag(Qt::LeftEdge, point.x() < reach);
  edges.setFlag(Qt::RightEdge, point.x() >= window.width() - reach);
  edges.setFlag(Qt::TopEdge, point.y() < reach);
  edges.setFlag(Qt::BottomEdge, point.y() >= window.height() - reach);
  return edges;
}

}  // namespace

WindowBorder::WindowBorder(const WindowSystem& windowSystem) : windowSystem_(windowSystem) { setMouseTracking(true); }

/// Two edges near a corner.
Qt::Edges WindowBorder::edgesAt(QPoint point) const {
  return edgesWithin(thickness, point, size()) ? edgesWithin(cornerLength, point, size()) : Qt::Edges();
}

void WindowBorder::resizeEvent(QResizeEvent* /*event*/) {
  setMask(QRegion(rect()) - rect().adjusted(thickness, thickness, -thickness, -thickness));
}

/// Clears the pixels outside the round corners, and draws the border line.
void WindowBorder::paintEvent(QPaintEvent* /*event*/) {
  // A window that was created without a compositor cannot become translucent.
  const bool seeThrough = window()->testAttribute(Qt::WA_TranslucentBackground) && windowSystem_.isComposited();
  const double radius = seeThrough ? cornerRadius : 0;
  constexpr double middleOfLine = 0.5;
  QPainterPath outside;
  outside.addRect(rect());
  QPainterPath inside;
  inside.addRoundedRect(rect(), radius, radius);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillPath(outside.subtracted(inside), Qt::transparent);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setPen(window()->isActiveWindow() ? activeBorderColor(palette()) : hairlineColor(palette()));
  const double radiusOfLine = std::max(radius - middleOfLine, 0.0);
  painter.drawRoundedRect(QRectF(rect()).adjusted(middleOfLine, middleOfLine, -middleOfLine, -middleOfLine),
                          radiusOfLine, radiusOfLine);
}

void WindowBorder::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) setCursor(cursorFor(edgesAt(event->pos())));
  DragHandle::mouseMoveEvent(event);
}

}  // namespace platform::desktop
