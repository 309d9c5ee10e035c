// SPDX-License-Identifier: MIT
#include "platform/view.h"

#include <QGuiApplication>
#include <QStyle>

#include "platform/desktop/views/native_view.h"

namespace platform {

NSView::NSView(NSRect frame) : NSView(frame, std::make_shared<Native>(std::make_unique<QWidget>())) {}

NSView::NSView(NSRect frame, std::shared_ptr<Native> native) : frame_(frame), native_(std::move(native)) {
  showFrame();
}

void NSView::showFrame() {
  if (native_->placedByParent) return;
  // Qt's y axis grows downward.
  const double top = superview_ != nullptr ? superview_->frame_.size.height - frame_.maxY() : frame_.minY();
  const QRect place = QRectF(frame_.minX(), top, frame_.size.width, frame_.size.height).toAlignedRect();
  if (superview_ == nullptr) return native_->widget->setGeometry(place);
  // Mirrored in languages that are written from right to left.
  const QRect whole(0, 0, static_cast<int>(superview_->frame_.size.width), 0);
  native_->widget->setGeometry(QStyle::visualRect(QGuiApplication::layoutDirection(), whole, place));
}

void NSView::showSubview(NSView& view) {
  QWidget& widget = *view.native_->widget;
  widget.setParent(native_->widget.get());
  view.showFrame();
  if (view.native_->behindOthers) widget.lower();
  widget.show();
}

void NSView::dropSubview(NSView& view) { view.native_->widget->setParent(nullptr); }

}  // namespace platform
