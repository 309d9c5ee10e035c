// SPDX-License-Identifier: MIT
#include "platform/desktop/views/symbol_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/symbols.h"
#include "platform/image.h"

namespace platform::desktop {
namespace {

constexpr double focusRingWidth = 1.5;
constexpr double focusRingRadius = 4;

}  // namespace

SymbolButton::SymbolButton() {
  setCursor(Qt::ArrowCursor);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void SymbolButton::setSymbol(std::string symbolName, const QString& accessibleName) {
  symbolName_ = std::move(symbolName);
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
  update();
}

void SymbolButton::setTint(const NSColor& tint) {
  tint_ = tint;
  update();
}

QSize SymbolButton::sizeHint() const {
  return {static_cast<int>(NSImage::symbolSide), static_cast<int>(NSImage::symbolSide)};
}

void SymbolButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool lively = isEnabled() && (underMouse() || hasFocus() || isDown());
  painter.setPen(lively ? palette().color(QPalette::Text) : toQColor(tint_, palette()));
  if (isDown()) painter.setBrush(hairlineColor(palette()));
  drawSymbol(symbolName_, painter, rect());
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), focusRingWidth));
  painter.setBrush(Qt::NoBrush);
  const double inset = focusRingWidth / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), focusRingRadius, focusRingRadius);
}

}  // namespace platform::desktop
