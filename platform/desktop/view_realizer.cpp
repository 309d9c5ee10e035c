// SPDX-License-Identifier: MIT
#include "platform/desktop/view_realizer.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QPainter>
#include <cmath>

#include "platform/box.h"
#include "platform/desktop/appearance.h"
#include "platform/desktop/image_painting.h"
#include "platform/desktop/native_view.h"
#include "platform/desktop/strings.h"
#include "platform/grid_view.h"
#include "platform/image_view.h"
#include "platform/stack_view.h"
#include "platform/text_field.h"

namespace platform::desktop {
namespace {

int whole(double points) { return static_cast<int>(std::lround(points)); }

/// What a text of key symbols is called on this desktop; empty for any other text.
QString keysInWords(const QString& text) {
  if (text.size() < 2) return {};
  if (text == QLatin1String("esc")) return QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText);
  Qt::KeyboardModifiers modifiers;
  for (const QChar symbol : text.chopped(1)) {
    if (symbol == u'⌘') {
      modifiers |= Qt::ControlModifier;
    } else if (symbol == u'⌥') {
      modifiers |= Qt::AltModifier;
    } else {
      return {};
    }
  }
  if (!modifiers) return {};
  const auto key = static_cast<Qt::Key>(text.back().unicode());
  return QKeySequence(QKeyCombination(modifiers, key)).toString(QKeySequence::NativeText);
}

/// A label in a colour by its role, which follows the palette.
class Label : public QLabel {
 public:
  explicit Label(const NSTextField& field) : QLabel(toQString(field.text())), color_(field.textColor()) {
    setTextFormat(Qt::PlainText);
    setFont(toQFont(field.font()));
    setWordWrap(field.wraps());
    const QString keys = keysInWords(QLabel::text());
    setToolTip(keys);
    setAccessibleDescription(keys);
    const int room = field.wraps() ? whole(field.preferredMaxLayoutWidth()) : QWIDGETSIZE_MAX;
    const QRectF text =
        QFontMetricsF(font()).boundingRect(QRectF(0, 0, room, QWIDGETSIZE_MAX), flags(), QLabel::text());
    setFixedSize(field.wraps() ? room : whole(std::ceil(text.width())), whole(std::ceil(text.height())));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(toQColor(color_, palette()));
    painter.setLayoutDirection(directionOf(text()));
    painter.drawText(rect(), flags(), text());
  }

 private:
  int flags() const {
    const auto leading = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    return int(leading | Qt::AlignAbsolute | Qt::AlignTop) | (wordWrap() ? Qt::TextWordWrap : 0);
  }

  NSColor color_;
};

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

/// None for a view that is content with the widget it has.
std::unique_ptr<QWidget> widgetFor(const NSView& view) {
  if (const auto* field = dynamic_cast<const NSTextField*>(&view)) return std::make_unique<Label>(*field);
  if (const auto* box = dynamic_cast<const NSBox*>(&view)) return std::make_unique<FilledBox>(*box);
  if (const auto* picture = dynamic_cast<const NSImageView*>(&view)) return std::make_unique<Picture>(*picture);
  return nullptr;
}

QWidget& widgetOf(const NSView& view) { return *view.native().widget; }

void layOut(const NSStackView& stack) {
  const bool vertical = stack.orientation() == NSUserInterfaceLayoutOrientationVertical;
  auto layout = std::make_unique<QBoxLayout>(vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  const bool leading = stack.alignment() == NSLayoutAttributeLeading;
  for (const auto& view : stack.subviews()) {
    layout->addWidget(&widgetOf(*view), 0, leading ? Qt::AlignLeading : Qt::AlignVCenter);
    if (view != stack.subviews().back()) layout->addSpacing(whole(stack.spacingAfter(*view)));
  }
  if (!vertical) layout->addStretch();
  widgetOf(stack).setLayout(layout.release());  // a widget owns its layout
}

void layOut(const NSGridView& grid) {
  auto layout = std::make_unique<QGridLayout>();
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(whole(grid.columnSpacing()));
  layout->setVerticalSpacing(whole(grid.rowSpacing()));
  int cell = 0;
  for (const auto& view : grid.subviews()) {
    layout->addWidget(&widgetOf(*view), cell / grid.columns(), cell % grid.columns(), Qt::AlignLeading);
    ++cell;
  }
  widgetOf(grid).setLayout(layout.release());  // a widget owns its layout
}

/// The distance that a subview keeps from an edge of `view`, by its own constraints.
int distance(const NSView& subview, NSLayoutAttribute edge) {
  for (const NSLayoutConstraint& constraint : subview.constraints()) {
    if (constraint.first.attribute == edge && constraint.second) return std::abs(whole(constraint.constant));
  }
  return 0;
}

void layOutOnlySubview(const NSView& view) {
  const NSView& subview = *view.subviews().front();
  auto layout = std::make_unique<QVBoxLayout>();
  layout->setSizeConstraint(QLayout::SetMinimumSize);
  layout->setContentsMargins(distance(subview, NSLayoutAttributeLeading), distance(subview, NSLayoutAttributeTop),
                             distance(subview, NSLayoutAttributeTrailing), distance(subview, NSLayoutAttributeBottom));
  layout->addWidget(&widgetOf(subview));
  widgetOf(view).setLayout(layout.release());  // a widget owns its layout
}

void fixSize(const NSView& view) {
  for (const NSLayoutConstraint& constraint : view.constraints()) {
    if (constraint.second) continue;
    if (constraint.first.attribute == NSLayoutAttributeWidth) widgetOf(view).setFixedWidth(whole(constraint.constant));
    if (constraint.first.attribute == NSLayoutAttributeHeight)
      widgetOf(view).setFixedHeight(whole(constraint.constant));
  }
}

}  // namespace

void realize(NSView& root) {
  if (auto widget = widgetFor(root)) root.native().widget = std::move(widget);
  for (const auto& view : root.subviews()) realize(*view);
  if (const auto* stack = dynamic_cast<const NSStackView*>(&root)) {
    layOut(*stack);
  } else if (const auto* grid = dynamic_cast<const NSGridView*>(&root)) {
    layOut(*grid);
  } else if (root.subviews().size() == 1) {
    layOutOnlySubview(root);
  }
  // Widgets made here came after those that were there before, in the order that a screen reader goes by.
  for (const auto& view : root.subviews()) widgetOf(*view).raise();
  fixSize(root);
}

}  // namespace platform::desktop
