// SPDX-License-Identifier: MIT
#include "platform/desktop/views/widget_tree.h"

#include <QPainter>
#include <memory>

#include "platform/box.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/image_painting.h"
#include "platform/desktop/views/label.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/view_layout.h"
#include "platform/image_view.h"

namespace platform::desktop {
namespace {

class FilledBox : public QWidget {
 public:
  explicit FilledBox(const NSBox& box) : color_(box.fillColor()) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), toQColor(color_, palette())); }

 private:
  NSColor color_;
};

class Picture : public QWidget {
 public:
  explicit Picture(const NSImageView& view) : image_(view.image()) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    paintImage(image_, painter);
  }

 private:
  NSImage image_;
};

/// Null for a view that keeps the widget it has.
std::unique_ptr<QWidget> widgetFor(const NSView& view) {
  if (const auto* field = dynamic_cast<const NSTextField*>(&view)) return std::make_unique<Label>(*field);
  if (const auto* box = dynamic_cast<const NSBox*>(&view)) return std::make_unique<FilledBox>(*box);
  if (const auto* picture = dynamic_cast<const NSImageView*>(&view)) return std::make_unique<Picture>(*picture);
  return nullptr;
}

void build(NSView& root) {
  NSView::Native& native = root.native();
  if (auto widget = widgetFor(root)) native.widget = std::move(widget);
  for (const auto& view : root.subviews()) build(*view);
  layOut(root);
  // Screen readers follow the order of siblings; without this, widgets made here would come after older ones.
  for (const auto& view : root.subviews()) view->native().widget->raise();
}

}  // namespace

void buildWidgets(NSView& root) {
  build(root);
  fit(root, QWIDGETSIZE_MAX);
}

void renameKeys(const NSView& root, const QString& before, const QString& now) {
  for (auto* const label : root.native().widget->findChildren<QLabel*>()) {
    if (label->text() == before) label->setText(now);
  }
  fit(root, QWIDGETSIZE_MAX);
}

}  // namespace platform::desktop
