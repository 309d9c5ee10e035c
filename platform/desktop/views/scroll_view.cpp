// SPDX-License-Identifier: MIT
#include "platform/scroll_view.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "platform/desktop/views/native_view.h"

namespace platform {
namespace {

/// Filled by the one widget inside it.
std::unique_ptr<QWidget> makeWidget() {
  auto widget = std::make_unique<QWidget>();
  auto* const layout = new QVBoxLayout(widget.get());
  layout->setContentsMargins(0, 0, 0, 0);
  return widget;
}

}  // namespace

NSScrollView::NSScrollView(NSRect frame) : NSView(frame, std::make_shared<Native>(makeWidget())) {
  native().behindOthers = true;
}

void NSScrollView::setHasVerticalScroller(bool shown) { hasVerticalScroller_ = shown; }

void NSScrollView::setDrawsBackground(bool draws) {
  native().widget->setBackgroundRole(QPalette::Base);
  native().widget->setAutoFillBackground(draws);
}

void NSScrollView::setDocumentView(const std::shared_ptr<NSTextView>& view) {
  view->native().placedByParent = true;
  addSubview(view);
  QWidget& widget = *view->native().widget;
  native().widget->layout()->addWidget(&widget);
  static_cast<QPlainTextEdit&>(widget).setVerticalScrollBarPolicy(hasVerticalScroller_ ? Qt::ScrollBarAsNeeded
                                                                                       : Qt::ScrollBarAlwaysOff);
}

}  // namespace platform
