// SPDX-License-Identifier: MIT
#include "platform/desktop/views/view_layout.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/desktop/views/label.h"
#include "platform/desktop/views/native_view.h"
#include "platform/grid_view.h"
#include "platform/stack_view.h"

namespace platform::desktop {
namespace {

QWidget& widgetOf(const NSView& view) { return *view.native().widget; }

void layOutStack(const NSStackView& stack) {
  const bool vertical = stack.orientation() == NSUserInterfaceLayoutOrientationVertical;
  auto layout = std::make_unique<QBoxLayout>(vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  const bool leading = stack.alignment() == NSLayoutAttributeLeading;
  for (const auto& view : stack.subviews()) {
    layout->addWidget(&widgetOf(*view), 0, leading ? Qt::AlignLeading : Qt::AlignVCenter);
    if (view != stack.subviews().back()) layout->addSpacing(qRound(stack.spacingAfter(*view)));
  }
  if (!vertical) layout->addStretch();
  widgetOf(stack).setLayout(layout.release());
}

void layOutGrid(const NSGridView& grid) {
  auto layout = std::make_unique<QGridLayout>();
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(qRound(grid.columnSpacing()));
  layout->setVerticalSpacing(qRound(grid.rowSpacing()));
  int cell = 0;
  for (const auto& view : grid.subviews()) {
    layout->addWidget(&widgetOf(*view), cell / grid.columns(), cell % grid.columns(), Qt::AlignLeading | Qt::AlignTop);
    ++cell;
  }
  widgetOf(grid).setLayout(layout.release());
}

/// The distance that a subview keeps from an edge of `view`, by its own constraints.
int distance(const NSView& subview, NSLayoutAttribute edge) {
  for (const NSLayoutConstraint& constraint : subview.constraints()) {
    if (constraint.first.attribute == edge && constraint.second) return std::abs(qRound(constraint.constant));
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
  widgetOf(view).setLayout(layout.release());
}

void fixSize(const NSView& view) {
  for (const NSLayoutConstraint& constraint : view.constraints()) {
    if (constraint.second) continue;
    if (constraint.first.attribute == NSLayoutAttributeWidth) widgetOf(view).setFixedWidth(qRound(constraint.constant));
    if (constraint.first.attribute == NSLayoutAttributeHeight)
      widgetOf(view).setFixedHeight(qRound(constraint.constant));
  }
}

/// Aligns the first baselines of each row.
void alignRow(const NSGridView& grid, std::size_t first) {
  std::vector<Label*> labels;
  for (std::size_t cell = first; cell < first + std::size_t(grid.columns()) && cell < grid.subviews().size(); ++cell) {
    if (auto* label = dynamic_cast<Label*>(&widgetOf(*grid.subviews()[cell]))) labels.push_back(label);
  }
  double ascent = 0;
  for (const Label* label : labels) ascent = std::max(ascent, label->ascent());
  for (Label* label : labels) label->standOn(ascent);
}

/// Each column gets the width that it needs, but at most half of what is left; the last one gets the rest.
void fitGrid(const NSGridView& grid, int room) {
  const auto& cells = grid.subviews();
  for (int column = 0; column < grid.columns(); ++column) {
    const bool last = column == grid.columns() - 1;
    int widest = 0;
    for (auto cell = std::size_t(column); cell < cells.size(); cell += std::size_t(grid.columns())) {
      fit(*cells[cell], last ? room : room / 2);
      widest = std::max(widest, widgetOf(*cells[cell]).width());
    }
    room -= widest + qRound(grid.columnSpacing());
  }
  for (std::size_t first = 0; first < cells.size(); first += std::size_t(grid.columns())) alignRow(grid, first);
}

}  // namespace

void layOut(const NSView& view) {
  if (const auto* stack = dynamic_cast<const NSStackView*>(&view)) {
    layOutStack(*stack);
  } else if (const auto* grid = dynamic_cast<const NSGridView*>(&view)) {
    layOutGrid(*grid);
  } else if (view.subviews().size() == 1) {
    layOutOnlySubview(view);
  }
  fixSize(view);
}

void fit(const NSView& view, int room) {
  for (const NSLayoutConstraint& constraint : view.constraints()) {
    if (constraint.first.attribute == NSLayoutAttributeWidth && !constraint.second) room = qRound(constraint.constant);
  }
  if (const auto* grid = dynamic_cast<const NSGridView*>(&view)) return fitGrid(*grid, room);
  if (auto* label = dynamic_cast<Label*>(&widgetOf(view))) label->fitInto(room);
  for (const auto& subview : view.subviews()) {
    fit(*subview, room - distance(*subview, NSLayoutAttributeLeading) - distance(*subview, NSLayoutAttributeTrailing));
  }
}

}  // namespace platform::desktop
