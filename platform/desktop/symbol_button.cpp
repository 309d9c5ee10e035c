#include "platform/desktop/symbol_button.h"

#include <QPainter>
#include <utility>

#include "platform/desktop/appearance.h"
#include "platform/desktop/symbols.h"
#include "platform/image.h"

namespace platform::desktop {

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

void SymbolButton::setTint(NSColor tint) {
  tint_ = tint;
  update();
}

QSize SymbolButton::sizeHint() const {
  return {static_cast<int>(NSImage::symbolSide), static_cast<int>(NSImage::symbolSide)};
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool lively = isEnabled() && (underMouse() || hasFocus() || isDown());
  painter.setPen(lively ? palette().color(QPalette::Text) : toQColor(tint_, palette()));
  if (isDown()) painter.setBrush(hairlineColor(palette()));
  drawSymbol(symbolName_, painter, rect());
}

}  // namespace platform::desktop
