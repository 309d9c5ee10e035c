// SPDX-License-Identifier: MIT
#include "platform/drawing.h"

#include <QPainter>
#include <QPainterPath>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/image_painting.h"

namespace platform {
namespace {

/// The painter of the handler that draws now; null outside of one.
QPainter* current = nullptr;
QColor strokeColor;

QColor toQColor(const NSColor& color) { return desktop::toQColor(color, QPalette()); }

QPainterPath toQPath(const NSBezierPath& path) {
  const NSRect rect = path.rect();
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height), path.xRadius(),
                         path.yRadius());
  return outline;
}

}  // namespace

void NSColor::setStroke() const { strokeColor = toQColor(*this); }

void NSBezierPath::stroke() const {
  if (current != nullptr) current->strokePath(toQPath(*this), QPen(strokeColor, lineWidth_));
}

void NSGradient::drawInBezierPath(const NSBezierPath& path, double /*angle*/) const {
  if (current == nullptr || colors_.size() < 2) return;
  const NSRect rect = path.rect();
  QLinearGradient gradient(0, rect.maxY(), 0, rect.minY());
  for (std::size_t i = 0; i < colors_.size(); ++i) {
    gradient.setColorAt(static_cast<double>(i) / static_cast<double>(colors_.size() - 1), toQColor(colors_[i]));
  }
  current->fillPath(toQPath(path), gradient);
}

NSSize NSString::sizeWithAttributes(std::string_view text, const NSStringAttributes& attributes) {
  const QFontMetricsF metrics(desktop::toQFont(attributes.font));
  return {metrics.horizontalAdvance(desktop::toQString(text)), metrics.height()};
}

void NSString::drawAtPoint(std::string_view text, NSPoint point, const NSStringAttributes& attributes) {
  if (current == nullptr) return;
  const QFont font = desktop::toQFont(attributes.font);
  current->save();
  // The image's y axis grows upward; the letters must not be mirrored.
  current->translate(point.x, point.y + QFontMetricsF(font).descent());
  current->scale(1, -1);
  current->setFont(font);
  current->drawText(QPointF(), desktop::toQString(text));
  current->restore();
}

void desktop::paintImage(const NSImage& image, QPainter& painter) {
  if (!image.drawingHandler) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(0, image.size().height);
  painter.scale(1, -1);
  current = &painter;
  image.drawingHandler({{0, 0}, image.size()});
  current = nullptr;
  painter.restore();
}

}  // namespace platform
