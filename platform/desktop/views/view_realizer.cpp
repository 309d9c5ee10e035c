// SPDX-License-Identifier: MIT
#include "platform/desktop/views/view_realizer.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "platform/box.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/image_painting.h"
#include "platform/desktop/views/native_view.h"
#include "platform/grid_view.h"
#include "platform/image_view.h"
#include "platform/stack_view.h"
#include "platform/text_field.h"

namespace platform::desktop {
namespace {

int whole(double points) { return static_cast<int>(std::lround(points)); }

/// A label in a colour by its role, which follows the palette.
class Label : public QLabel {
 public:
  explicit Label(const NSTextField& field) : QLabel(toQString(field.text())), color_(field.textColor()) {
    setTextFormat(Qt::PlainText);
    setFont(toQFont(field.font()));
    if (field.wraps()) paragraphWidth_ = whole(field.preferredMaxLayoutWidth());
  }

  /// Takes a line. Where that is wider than the room, in points, it takes as many as it needs.
  void fitInto(int room) {
    breakLines(QWIDGETSIZE_MAX);
    const int line = whole(std::ceil(lines_.maximumWidth()));
    const int width = paragraphWidth_.value_or(std::min(line, room));
    setFixedSize(width, breakLines(width));
    above_ = 0;
  }

  /// Of the first line, which may be in a font that only the text asked for.
  double ascent() const { return lines_.lineAt(0).ascent(); }

  /// Takes room above, so that the first line stands on that of a label with this ascent.
  void standOn(double ascent) {
    above_ = whole(ascent - this->ascent());
    setFixedHeight(height() + above_);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(toQColor(color_, palette()));
    lines_.draw(&painter, QPointF(0, above_));
  }

 private:
  /// Their height, in points.
  int breakLines(int width) {
    QTextOption option;
    // Of the language: a sentence may begin with a name in other letters.
    option.setTextDirection(layoutDirection());
    option.setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines_.setText(text());
    lines_.setFont(font());
    lines_.setTextOption(option);
    lines_.beginLayout();
    double height = 0;
    for (QTextLine line = lines_.createLine(); line.isValid(); line = lines_.createLine()) {
      line.setLineWidth(width);
      line.setPosition(QPointF(0, height));
      height += line.height();
    }
    lines_.endLayout();
    return whole(std::ceil(height));
  }

  NSColor color_;
  std::optional<int> paragraphWidth_;
  QTextLayout lines_;
  int above_ = 0;
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
    layout->addWidget(&widgetOf(*view), cell / grid.columns(), cell % grid.columns(), Qt::AlignLeading | Qt::AlignTop);
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

void fit(const NSView& view, int room);

/// The first lines of a row stand on one line, whatever their fonts.
void alignRow(const NSGridView& grid, std::size_t first) {
  std::vector<Label*> labels;
  for (std::size_t cell = first; cell < first + std::size_t(grid.columns()) && cell < grid.subviews().size(); ++cell) {
    if (auto* label = dynamic_cast<Label*>(&widgetOf(*grid.subviews()[cell]))) labels.push_back(label);
  }
  double ascent = 0;
  for (const Label* label : labels) ascent = std::max(ascent, label->ascent());
  for (Label* label : labels) label->standOn(ascent);
}

/// A column takes what it needs, up to half of what the ones before it leave; the last one takes the rest.
void fit(const NSGridView& grid, int room) {
  const auto& cells = grid.subviews();
  for (int column = 0; column < grid.columns(); ++column) {
    const bool last = column == grid.columns() - 1;
    int widest = 0;
    for (auto cell = std::size_t(column); cell < cells.size(); cell += std::size_t(grid.columns())) {
      fit(*cells[cell], last ? room : room / 2);
      widest = std::max(widest, widgetOf(*cells[cell]).width());
    }
    room -= widest + whole(grid.columnSpacing());
  }
  for (std::size_t first = 0; first < cells.size(); first += std::size_t(grid.columns())) alignRow(grid, first);
}

/// Gives the labels their sizes, in lines that are no wider than `room`, in points.
void fit(const NSView& view, int room) {
  for (const NSLayoutConstraint& constraint : view.constraints()) {
    if (constraint.first.attribute == NSLayoutAttributeWidth && !constraint.second) room = whole(constraint.constant);
  }
  if (const auto* grid = dynamic_cast<const NSGridView*>(&view)) return fit(*grid, room);
  if (auto* label = dynamic_cast<Label*>(&widgetOf(view))) label->fitInto(room);
  for (const auto& subview : view.subviews()) {
    fit(*subview, room - distance(*subview, NSLayoutAttributeLeading) - distance(*subview, NSLayoutAttributeTrailing));
  }
}

void build(NSView& root) {
  if (auto widget = widgetFor(root)) root.native().widget = std::move(widget);
  for (const auto& view : root.subviews()) build(*view);
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

}  // namespace

void realize(NSView& root) {
  build(root);
  fit(root, QWIDGETSIZE_MAX);
}

void renameKeys(const NSView& root, const QString& before, const QString& now) {
  for (auto* const label : widgetOf(root).findChildren<QLabel*>()) {
    if (label->text() == before) label->setText(now);
  }
  fit(root, QWIDGETSIZE_MAX);
}

}  // namespace platform::desktop
