// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <memory>
#include <utility>

#include "platform/view.h"

namespace platform {

/// A view's widget. The view owns it; Qt's parent only places it.
struct NSView::Native {
  explicit Native(std::unique_ptr<QWidget> owned) : widget(std::move(owned)) {}

  std::unique_ptr<QWidget> widget;
  bool placedByParent = false;  ///< the superview's widget decides where it is
  bool behindOthers = false;    ///< siblings that are there already lie over it
};

}  // namespace platform
