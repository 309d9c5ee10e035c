// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include "platform/color.h"

namespace platform::desktop {

/// A push button filled with its tint. Its title is black or white, whichever has more contrast to that.
class PushButton : public QPushButton {
 public:
  explicit PushButton(const QString& title);

  void setTint(const NSColor& tint);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  bool reachedByKey_ = false;
  NSColor tint_ = NSColor::labelColor();
};

}  // namespace platform::desktop
