// SPDX-License-Identifier: MIT
#include "platform/layout.h"

#include "platform/view.h"

namespace platform {

NSLayoutConstraint NSLayoutAnchor::constraintEqualToConstant(double constant) const {
  return {*this, std::nullopt, constant};
}

NSLayoutConstraint NSLayoutAnchor::constraintEqualToAnchor(NSLayoutAnchor other, double constant) const {
  return {*this, other, constant};
}

void NSLayoutConstraint::setActive(bool /*active*/) const { first.view->constraints_.push_back(*this); }

void NSLayoutConstraint::activateConstraints(std::initializer_list<NSLayoutConstraint> constraints) {
  for (const NSLayoutConstraint& constraint : constraints) constraint.setActive(true);
}

}  // namespace platform
