// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>

#include "platform/view.h"

namespace platform {

/// Views in columns and rows. A column is as wide as its widest view.
class NSGridView : public NSView {
 public:
  /// Rows are added afterwards: `rows` is 0.
  static std::shared_ptr<NSGridView> gridViewWithNumberOfColumns(int columns, int rows);

  /// In points.
  void setColumnSpacing(double spacing) { columnSpacing_ = spacing; }
  void setRowSpacing(double spacing) { rowSpacing_ = spacing; }
  /// As many views as there are columns. They are subviews, row by row.
  void addRowWithViews(std::initializer_list<std::shared_ptr<NSView>> views);

  int columns() const { return columns_; }
  double columnSpacing() const { return columnSpacing_; }
  double rowSpacing() const { return rowSpacing_; }

 private:
  explicit NSGridView(int columns) : NSView(NSRect{}), columns_(columns) {}

  int columns_;
  double columnSpacing_ = 6;
  double rowSpacing_ = 6;
};

inline std::shared_ptr<NSGridView> NSGridView::gridViewWithNumberOfColumns(int columns, int /*rows*/) {
  return std::shared_ptr<NSGridView>(new NSGridView(columns));
}

inline void NSGridView::addRowWithViews(std::initializer_list<std::shared_ptr<NSView>> views) {
  for (const auto& view : views) addSubview(view);
}

}  // namespace platform
