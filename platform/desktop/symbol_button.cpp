#include "platform/desktop/symbol_button.h"

#include <QPainter>

#include "platform/desktop/appearance.h"
#include "platform/image.h"

namespace platform::desktop {
namespace {

constexpr double strokeWidth = 1.2;

void drawNothing(QPainter& /*painter*/, const QRectF& /*circle*/) {}

void drawInfo(QPainter& painter, const QRectF& circle) {
  const QPointF middle = circle.center();
  painter.drawEllipse(circle);
  painter.drawLine(middle + QPointF(0, -0.5), middle + QPointF(0, 3.5));
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(middle + QPointF(0, -3.25), 0.9, 0.9);
}

void drawCross(QPainter& painter, const QRectF& circle) {
  const QPointF middle = circle.center();
  painter.drawEllipse(circle);
  painter.drawLine(middle + QPointF(-2.5, -2.5), middle + QPointF(2.5, 2.5));
  painter.drawLine(middle + QPointF(-2.5, 2.5), middle + QPointF(2.5, -2.5));
}

}  // namespace

SymbolButton::SymbolButton(const std::string& symbolName, const QString& accessibleName)
    : draw_(symbolName == "info.circle"    ? drawInfo
            : symbolName == "xmark.circle" ? drawCross
                                           : drawNothing) {
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
  setCursor(Qt::ArrowCursor);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void SymbolButton::setTint(NSColor tint) {
  tint_ = tint;
  update();
}

QSize SymbolButton::sizeHint() const {
  return {static_cast<int>(NSImage::symbolSide), static_cast<int>(NSImage::symbolSide)};
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool lively = isEnabled() && (underMouse() || hasFocus() || isDown());
  QPen pen(lively ? palette().color(QPalette::Text) : toQColor(tint_, palette()), strokeWidth);
  pen.setCapStyle(Qt::RoundCap);
  painter.setPen(pen);
  if (isDown()) painter.setBrush(hairlineColor(palette()));
  const double inset = 1.5;
  draw_(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset));
}

}  // namespace platform::desktop
