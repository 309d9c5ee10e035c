// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <optional>

namespace platform {

class NSView;
struct NSLayoutConstraint;

enum NSLayoutAttribute {
  NSLayoutAttributeTop = 3,
  NSLayoutAttributeBottom = 4,
  NSLayoutAttributeLeading = 5,
  NSLayoutAttributeTrailing = 6,
  NSLayoutAttributeWidth = 7,
  NSLayoutAttributeHeight = 8,
  NSLayoutAttributeCenterY = 10,
};

/// An edge or a dimension of a view, for constraints. Top and leading distances grow downward and in the direction of
/// reading.
struct NSLayoutAnchor {
  NSView* view;  ///< outlives the anchor
  NSLayoutAttribute attribute;

  /// In points.
  NSLayoutConstraint constraintEqualToConstant(double constant) const;
  /// This edge is `constant` points after the other one.
  NSLayoutConstraint constraintEqualToAnchor(NSLayoutAnchor other, double constant) const;
};

/// What the sizes and the places of views have to fulfil. Two kinds count: a fixed width or height of a view, and the
/// distances of the edges of a view's only subview from its own.
struct NSLayoutConstraint {
  NSLayoutAnchor first;
  std::optional<NSLayoutAnchor> second;
  double constant;

  /// True is the one value there is: no constraint is ever taken back.
  void setActive(bool active) const;
  static void activateConstraints(std::initializer_list<NSLayoutConstraint> constraints);
};

}  // namespace platform
